#pragma once

#include "DialScale.h"

#include <QWidget>

/// Ring-shaped tractive effort display: blue traction to the right of 12 o'clock, yellow braking
/// to the left. The ring stands in the palette's WindowText colour on its Window colour.
///
/// A setter that changes something repaints; an equal value costs nothing. Whoever writes a field
/// directly calls `update()` afterwards.
class ZugkraftDisplay : public QWidget
{
    Q_OBJECT

public:
    explicit ZugkraftDisplay(QWidget *parent = nullptr);

    /// Ignored when `traction` is below 10. `brake` is negative as a rule: the screens pass the
    /// controller's minimum.
    void setRange(int brake, int traction);
    void setLabelSteps(int brake, int traction); ///< without repaint
    void setValue(double newValue);
    void setBrightness(int newBrightness);

    int brakeLabelStep = 50;
    int tractionLabelStep = 50;
    QString unitText = QStringLiteral("kN");
    int brightness = 255;
    double value = 0.0; ///< positive traction, negative braking
    /// Full scale, braking side. The default is positive and puts a braking preset on the
    /// traction side until a screen sets the range.
    int brakeRange = 240;
    int tractionRange = 300;
    double presetValue = 0.0; ///< position of the triangle
    int percentValue = 0; ///< number in the box at the foot

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawRing(QPainter &painter, const QColor &foreground, const QColor &background) const;
    void DrawNumbers(QPainter &painter, ForceHalf half) const;
    void DrawTicks(QPainter &painter, ForceHalf half) const;
    void DrawFoot(QPainter &painter, const QColor &foreground, const QColor &background) const;
};
