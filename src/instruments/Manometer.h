#pragma once

#include <QColor>
#include <QLabel>

/// Pressure dial with two needles, in bar.
class Manometer : public QLabel
{
    Q_OBJECT

public:
    explicit Manometer(QWidget *parent = nullptr);

    /// Repaints only when a needle moves; a value that is no number leaves its needle.
    void setValues(double newValue, double newSecondValue);

    QColor dialColor = Qt::black;
    QColor scaleColor = Qt::white;
    double maxValue = 12.0; ///< end of the scale
    double labelStep = 1.0;
    double value = 0.0; ///< main needle, lies above the second
    double secondValue = 0.0;
    bool secondVisible = true;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawScale(QPainter &painter) const;
    void DrawPressureNeedle(QPainter &painter, double pressure, const QColor &color) const;
};
