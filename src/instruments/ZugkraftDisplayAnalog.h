#pragma once

#include "DialScale.h"

#include <QColor>
#include <QWidget>

/// Pointer dial for the tractive effort: zero at 12 o'clock, traction to the right, braking to
/// the left, each half with a scale drawn from a pattern of long, middle and short ticks.
///
/// A setter that changes something repaints; an equal value costs nothing. Whoever writes a field
/// directly calls `update()` afterwards.
class ZugkraftDisplayAnalog : public QWidget
{
    Q_OBJECT

public:
    explicit ZugkraftDisplayAnalog(QWidget *parent = nullptr);

    void setRange(int min, int max);
    void setPatterns(const QString &brake, const QString &traction);
    void setTickSteps(int brake, int traction);
    void setLabelSteps(int brake, int traction);
    void setColors(const QColor &dial, const QColor &scale);
    void setSecondValue(int newValue);
    void setBrightness(int newBrightness);

    /// Moves the needle, with `smoothing` in steps of one between which the event loop turns: a
    /// further call may run inside, and the dial may be deleted inside. Callers that go on to use
    /// the dial or their own window hold a QPointer over this call.
    void setValue(int newValue);

    int needleStyle = 0; ///< 0 plain bar, 1 two-tone pointer
    QColor dialColor = Qt::black;
    QColor scaleColor = Qt::white;
    int brakeLabelStep = 50;
    int tractionLabelStep = 50;
    int brakeTickStep = 10;
    int tractionTickStep = 10;
    QString brakePattern = QStringLiteral("ssssl");
    QString tractionPattern = QStringLiteral("ssssl");
    int minValue = -150;
    int maxValue = 80;
    int value = 0;
    int secondValue = 0; ///< dark red marker at the rim
    int brightness = 255;
    bool smoothing = true;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawHalf(QPainter &painter, ForceHalf half) const;
};
