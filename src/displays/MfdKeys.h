#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>

/// The radius of a cab key's corners, at the key's design side of 45 pixels.
constexpr int kMfdKeySide = 45;

/// A push key of the touch frame: a raised dark cap with a light rim and legend, which sinks while
/// it is held. Rim and legend take the text colour of the key's style sheet, the legend grows and
/// shrinks with the cap and is never cut.
class MfdPushKey : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int capRadius MEMBER capRadius)

public:
    explicit MfdPushKey(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int capRadius = 10;
};

/// An arrow key of the touch frame. Its text ("top", "bottom", "left", "right") is what it
/// delivers; its face shows the arrow in that direction.
class MfdToolKey : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(int capRadius MEMBER capRadius)

public:
    explicit MfdToolKey(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int capRadius = 10;
};

/// The frame's name beside its upper keys, in letters that keep step with their legends.
class MfdNamePlate : public QLabel
{
    Q_OBJECT

public:
    explicit MfdNamePlate(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// The small dark lamp below the keys of the MTD's frame.
class MfdLamp : public QLabel
{
    Q_OBJECT

public:
    explicit MfdLamp(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
