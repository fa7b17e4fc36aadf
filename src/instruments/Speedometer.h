#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QWidget>

/// Round speed dial with a number on its hub, an LED box and two speed markers, painted from its
/// fields. Speeds are km/h.
///
/// A setter that changes something repaints; an equal value costs nothing. Whoever writes a field
/// directly calls `update()` afterwards.
class Speedometer : public QWidget
{
    Q_OBJECT

public:
    explicit Speedometer(QWidget *parent = nullptr);

    void setNeedleStyle(int style); ///< a plain field write without repaint
    void setBrightness(int newBrightness);
    void setCentreValueVisible(bool visible);
    void setLedVisible(bool visible);
    void setTargetMarkerVisible(bool visible);
    void setLimitMarkerVisible(bool visible);
    void setLedSollValue(int value);
    void setTargetMarkerSpeed(int newSpeed);
    void setColors(const QColor &dial, const QColor &scale);
    /// Values below 20 are ignored.
    void setMaxSpeed(int newMaxSpeed);

    /// Moves the needle in half km/h steps and ends at the absolute value, so that a reverse
    /// speed shows as positive. The event loop turns between the steps: a further call may run
    /// inside, and the dial may be deleted inside. Callers that go on to use the dial or their
    /// own window hold a QPointer over this call.
    void setSpeed(float newSpeed);

    int needleStyle = 0; ///< 0 plain bar, 1 two-tone pointer
    int brightness = 255; ///< below 255 a black veil covers the dial
    bool centreValueVisible = true;
    bool ledVisible = false;
    bool targetMarkerVisible = false; ///< magenta dot; also lets the LED box show `ledSollValue`
    bool limitMarkerVisible = false; ///< red triangle
    int ledSollValue = 0; ///< LED value while `ledValue` is -1
    float speed = 0.0F; ///< what the needle shows now
    int ledValue = -1; ///< -1 means none
    QFont ledFont;
    int labelStep = 20;
    int maxSpeed = 240;
    int targetMarkerSpeed = 0;
    int limitMarkerSpeed = 0;
    QColor dialColor = Qt::black; ///< disc, and text on the hub
    QColor scaleColor = Qt::white; ///< ticks, numbers, needle, hub
    QColor ledBackColor{40, 40, 40};
    QColor ledTextColor{177, 145, 83};
    QPixmap rimPixmap; ///< a textured rim in place of the plain disc

public slots:
    /// Moves the needle by one from where the last sweep began. Nothing is connected to it.
    void updateSlowly();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double DrawRim(QPainter &painter) const;
    void DrawScale(QPainter &painter, double radius) const;
    void DrawMarkers(QPainter &painter, double radius) const;
    void DrawCentreValue(QPainter &painter) const;
    void DrawLedBox(QPainter &painter) const;
    QString LedDigits() const;

    int rampStart = 0;
    int rampTarget = 0;
};
