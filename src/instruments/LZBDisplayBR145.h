#pragma once

#include <QColor>
#include <QFont>
#include <QFrame>

/// LZB target distance as a bar of 38 LED blocks with a digital field above it. The drawing
/// stretches with the widget, in both directions on its own. Distances are metres.
///
/// A setter that changes something repaints; an equal value costs nothing.
class LZBDisplayBR145 : public QFrame
{
    Q_OBJECT

public:
    explicit LZBDisplayBR145(QWidget *parent = nullptr);

    void setDistance(int metres);
    void setShown(bool on);

    bool shown = false; ///< kept for the screens; the bar looks the same either way
    QFont ledFont;
    QColor panelColor{20, 20, 20};
    QColor scaleColor = Qt::white;
    int rangeTop = 4000;
    int distance = 4000;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawDigits(QPainter &painter) const;
    void DrawBlocks(QPainter &painter) const;
    void DrawScale(QPainter &painter) const;
};
