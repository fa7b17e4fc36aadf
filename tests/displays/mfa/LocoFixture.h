#pragma once

#include "ClickedLabelRailjet.h"
#include "KabdataSettings.h"
#include "LocoData.h"
#include "TrainData.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

/// What a screen reads: a loco configuration from literal lines, the train, and settings in a
/// folder of their own.
class LocoFixture
{
public:
    LocoFixture()
    {
        train.hour = 14;
        train.minute = 37;
    }

    /// Replaces the configuration. A record takes part only when it has a line.
    void Load(const QByteArray &lines)
    {
        QBuffer buffer;
        buffer.setData(lines);
        buffer.open(QIODevice::ReadOnly);
        loco.Read(buffer);
    }

    /// The line of an assigned record that ranges from -300 to 300.
    static QByteArray Line(const char *key, double value)
    {
        return QByteArray(key) + "=7:Controller:" + QByteArray::number(value)
            + ":-300:300:0:0:0:0\n";
    }

    QTemporaryDir folder;
    KabdataSettings settings{folder.filePath(QStringLiteral("kabdata.ini"))};
    TrainData train;
    LocoData loco;
};

/// A screen over a fixture of its own.
template <typename Window>
class Screen : public LocoFixture
{
public:
    Screen()
    {
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        window.SetLocoData(&loco);
    }

    /// Loads the lines and runs one pass.
    void Pass(const QByteArray &lines)
    {
        Load(lines);
        window.OnUpdateSecondTimer();
    }

    Window window{&settings, &train};
};

/// Touches a key of a screen, as far as its handlers can tell.
inline void Press(QWidget *window, const char *key)
{
    auto *label = window->findChild<ClickedLabelRailjet *>(QLatin1String(key));
    if (label == nullptr)
        QFAIL(key);
    emit label->clicked();
}

inline void Press(QWidget *window, std::initializer_list<const char *> keys)
{
    for (const char *key : keys)
        Press(window, key);
}

/// The text of a label or line edit.
inline QString TextOf(const QWidget *window, const char *name)
{
    const auto *widget = window->findChild<QWidget *>(QLatin1String(name));
    return widget == nullptr ? QStringLiteral("no such widget")
                             : widget->property("text").toString();
}

/// The page that a stack shows.
inline int PageOf(const QWidget *window, const char *stack)
{
    const auto *widget = window->findChild<QWidget *>(QLatin1String(stack));
    return widget == nullptr ? -1 : widget->property("currentIndex").toInt();
}

/// The visible labels whose text does not fit into them.
inline QString CutLabels(const QWidget &window)
{
    QStringList cut;
    const auto labels = window.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const QSize text = label->fontMetrics().size(0, label->text());
        const bool fits = text.width() <= label->width() && text.height() <= label->height();
        if (label->isVisible() && !label->text().isEmpty() && !fits)
            cut.append(label->objectName());
    }
    return cut.join(QLatin1Char(' '));
}
