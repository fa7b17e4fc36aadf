#pragma once

#include <QWidget>

/// Speed dial of North American locos: an arc of 200 degrees with a needle, and the speed as a
/// number below its hub. A scale or step that is not above 0 draws neither scale nor needle.
///
/// Whoever writes a field directly calls `update()` afterwards.
class SpeedometerUsDigital : public QWidget
{
    Q_OBJECT

public:
    explicit SpeedometerUsDigital(QWidget *parent = nullptr);

    /// Repaints only when the needle moves; a value that is no number leaves it where it is.
    void setValue(double speed);

    int maxSpeed = 100; ///< end of the scale
    double value = 0.0;
    double labelStep = 10.0;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawScale(QPainter &painter, const QColor &color) const;
    void DrawNeedle(QPainter &painter, const QColor &color) const;
};
