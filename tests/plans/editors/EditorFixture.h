#pragma once

#include "KabdataSettings.h"
#include "PlanTable.h"
#include "ScriptedDialogs.h"
#include "TrainData.h"
#include "WindowRoadMapEditor.h"
#include "WindowTrainScheduleEditor.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

const QByteArray kRoadMap =
    "Name=Köln-Koblenz\nNickname=Lotte\nCreateDate=01.03.2024\nLastUpdateDate=02.03.2024\n"
    "ExpiryDate=31.12.2034\nVersion=7\nUID={6f1d}\nFileType=1\nUnit=0\n"
    "0;50.943;6.9586;0;60;Köln Hbf;⭢;53;0.00118073;\n"
    "1;50.9454;6.9543;-99.9;60;Asig;;53.4723;0.00118073;<\n";
const QByteArray kTimeTable =
    "Name=Köln-Koblenz\nNickname=Lotte\nScheduleID=RB 26\nTrainNumber=RB 26111\nTrainWeight=320\n"
    "TrainLength=160\nDescription=Hält oft.<br>Sehr.\nCreateDate=01.03.2024\n"
    "LastUpdateDate=02.03.2024\nExpiryDate=31.12.2034\nScenario=Practice\nVersion=7\nUID={1}\n"
    "Vmax=140\nFileType=2\nUnit=0\n"
    "0;50.943;6.9586;0;60;Köln Hbf;;07:00:00;1;Gleis 3;⭢;\n"
    "1;50.9454;6.9543;-99.9;60;Asig;;;0;;;<\n"
    "2;50.9272;6.9362;3.5;80;Köln Süd;07:05:00;07:06:30;3;;;\n"
    "3;50.8797;6.9079;9.2;80;Kalscheuren;07:12:00;;2;;;\n";

/// The editor of route plans ("sfp") or of timetables ("tfp") with what it stands on in a test: a
/// work folder, settings and a train of its own, scripted boxes and menus, and a clock that stands
/// at 08:15:42.
class Editor
{
public:
    explicit Editor(const QString &planSuffix)
        : settings(folder.filePath(QStringLiteral("kabdata.ini"))), suffix(planSuffix)
    {
        settings.SetWorkFolder(folder.path());
        settings.SetNickname(QStringLiteral("Lotte"));
        settings.SetUserAllowed(QStringLiteral("1"));
        PlanEditorOutside outside;
        outside.chooseFromMenu = [this](QWidget *, const QVector<PlanMenuEntry> &entries, QPoint) {
            menu.clear();
            for (const PlanMenuEntry &entry : entries)
                menu.append(entry.label);
            if (whileMenuOpen)
                whileMenuOpen();
            return choice;
        };
        outside.clock = [] { return QTime(8, 15, 42); };
        if (suffix == QLatin1String("sfp"))
            window = new WindowRoadMapEditor(&settings, &train, nullptr, outside);
        else
            window = new WindowTrainScheduleEditor(&settings, &train, nullptr, outside);
        window->show();
    }
    ~Editor() { delete window.data(); }

    PlanEditorWindow &operator*() const { return *window; }
    PlanEditorWindow *operator->() const { return window; }
    template <typename Type>
    Type *Child(const char *name) const
    {
        auto *child = window->findChild<Type *>(QLatin1String(name));
        if (child == nullptr)
            qFatal("no widget of that name: %s", name);
        return child;
    }
    QLineEdit *Field(const char *name) const { return Child<QLineEdit>(name); }
    PlanTable &Table() const { return *Child<PlanTable>("tableWidget"); }
    void Trigger(const char *action) const { Child<QAction>(action)->trigger(); }
    void Undo() const
    {
        for (QAction *action : window->findChildren<QAction *>()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Undo))
                action->trigger();
        }
    }
    QStringList Texts(int column) const
    {
        QStringList texts;
        for (int row = 0; row < Table().rowCount(); ++row)
            texts.append(Table().CellText(row, column));
        return texts;
    }
    void ChooseInCell(int row, int column, int entry)
    {
        menu.clear();
        choice = entry;
        window->OnContextMenuEvent(
            Table().visualRect(Table().model()->index(row, column)).center());
    }

    QString Path(const QString &name) const { return folder.filePath(name); }
    /// The path of a plan in the editor's own folder.
    QString PlanPath(const QString &base) const
    {
        const bool isRoadMap = suffix == QLatin1String("sfp");
        return Path(isRoadMap ? "roadsections/" : "traintimetables/") + base + '.' + suffix;
    }
    QString Write(const QString &path, const QByteArray &content) const
    {
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

    QByteArray Plan() const { return suffix == QLatin1String("sfp") ? kRoadMap : kTimeTable; }
    QString OpenPlan() { return OpenPlan(Plan()); }
    QString OpenPlan(const QByteArray &content)
    {
        const QString path = Write(PlanPath("a"), content);
        Open(path);
        return path;
    }
    void Open(const QString &path)
    {
        dialogs.files.append({path});
        window->OnOpenFile();
    }
    void SaveAs(const QString &path)
    {
        dialogs.files.append({path});
        window->OnSaveAsFile();
    }

    QTemporaryDir folder;
    KabdataSettings settings;
    TrainData train;
    ScriptedDialogs dialogs;
    QStringList menu; ///< the entries of the one that was shown last
    int choice = -1;
    std::function<void()> whileMenuOpen;
    QPointer<PlanEditorWindow> window;

private:
    const QString suffix;
};
