#pragma once

#include "KabdataSettings.h"
#include "PlanEditorWindow.h"
#include "PlanTable.h"
#include "ScriptedDialogs.h"
#include "TrainData.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

/// What an editor stands on in a test: a work folder, settings and a train of its own, scripted
/// boxes and menus, and a clock that stands at 08:15:42.
class EditorFixture
{
public:
    EditorFixture() : settings(folder.filePath(QStringLiteral("kabdata.ini")))
    {
        settings.SetWorkFolder(folder.path());
        settings.SetNickname(QStringLiteral("Lotte"));
        settings.SetUserAllowed(QStringLiteral("1"));
    }

    QString Path(const QString &name) const { return folder.filePath(name); }

    PlanEditorOutside Outside()
    {
        PlanEditorOutside outside;
        outside.chooseFromMenu = [this](QWidget *, const QVector<PlanMenuEntry> &entries, QPoint) {
            menu = entries;
            if (whileMenuOpen)
                whileMenuOpen();
            return choice;
        };
        outside.clock = [] { return QTime(8, 15, 42); };
        return outside;
    }

    QString Write(const QString &name, const QByteArray &content) const
    {
        const QString path = Path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write a file of the test");
        return path;
    }
    static QByteArray Read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll()
                                                                : QByteArray("(no file)");
    }
    /// The file without the line of the save counter.
    static QByteArray ReadWithoutVersion(const QString &path)
    {
        QList<QByteArray> lines = Read(path).split('\n');
        for (int i = lines.size() - 1; i >= 0; --i) {
            if (lines.at(i).startsWith("Version="))
                lines.removeAt(i);
        }
        return lines.join('\n');
    }

    void Open(PlanEditorWindow &window, const QString &path)
    {
        dialogs.files.append({path});
        window.OnOpenFile();
    }
    void SaveAs(PlanEditorWindow &window, const QString &path)
    {
        dialogs.files.append({path});
        window.OnSaveAsFile();
    }
    QStringList MenuLabels() const
    {
        QStringList labels;
        for (const PlanMenuEntry &entry : menu)
            labels.append(entry.label);
        return labels;
    }

    QTemporaryDir folder;
    KabdataSettings settings;
    TrainData train;
    ScriptedDialogs dialogs;
    QVector<PlanMenuEntry> menu; ///< the one that was shown last
    int choice = -1;
    std::function<void()> whileMenuOpen;
};

template <typename Type>
Type *Child(const QWidget &window, const char *name)
{
    auto *child = window.findChild<Type *>(QLatin1String(name));
    if (child == nullptr)
        qFatal("no widget of that name: %s", name);
    return child;
}

inline PlanTable *TableOf(const QWidget &window)
{
    return Child<PlanTable>(window, "tableWidget");
}

inline QLineEdit *Field(const QWidget &window, const char *name)
{
    return Child<QLineEdit>(window, name);
}

inline QAction *ActionByText(const QWidget &window, const QString &text)
{
    for (QAction *action : window.findChildren<QAction *>()) {
        if (action->text() == text)
            return action;
    }
    qFatal("no action of that text");
}

/// The texts of one column.
inline QStringList ColumnTexts(const PlanTable &table, int column)
{
    QStringList texts;
    for (int row = 0; row < table.rowCount(); ++row)
        texts.append(table.CellText(row, column));
    return texts;
}

inline void SetTexts(PlanTable &table, int row, const QStringList &texts)
{
    for (int column = 0; column < texts.size(); ++column)
        table.SetCell(row, column, texts.at(column));
}

inline QPoint CellPoint(const PlanTable &table, int row, int column)
{
    return table.visualRect(table.model()->index(row, column)).center();
}
