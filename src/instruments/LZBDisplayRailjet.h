#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>

/// LZB target distance as a slim yellow bar beside a printed scale. The drawing stretches with the
/// widget, in both directions on its own. Distances are metres.
///
/// A setter that changes something repaints; an equal value costs nothing. Whoever writes a field
/// directly calls `update()` afterwards.
class LZBDisplayRailjet : public QLabel
{
    Q_OBJECT

public:
    explicit LZBDisplayRailjet(QWidget *parent = nullptr);

    void setDistance(int metres);
    void setActive(bool on);
    void setBrightness(int newBrightness);

    int mode = 0; ///< 5 makes the digital field permanent
    int brightness = 255; ///< the veil covers the indicator only while it is active
    bool active = false; ///< when false, only the frame is painted
    int distance = 0;
    QFont ledFont;
    QColor panelColor{20, 20, 20};
    QColor scaleColor = Qt::white;
    int rangeTop = 4000;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawDigits(QPainter &painter) const;
    void DrawScale(QPainter &painter, double top) const;
    void DrawBar(QPainter &painter, double top) const;
};
