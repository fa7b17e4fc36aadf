#pragma once

#include "ValueBarScale.h"

#include <QLabel>

/// Vertical gauge: a scale at the left, a sunken bar beside it, a target marker, and a box with
/// the value at the foot. The drawing stretches with the widget, in both directions on its own.
///
/// Setters repaint only when something changes. Whoever writes a field directly calls `update()`
/// afterwards.
class ValueBar : public QLabel
{
    Q_OBJECT

public:
    explicit ValueBar(QWidget *parent = nullptr);

    void setUnitText(const QString &text);
    /// Takes the scale ends and lays the bar out anew for them. A range that is empty or reversed
    /// draws neither scale nor fill.
    void setRange(int min, int max);
    void setValue(int newValue);

    QLabel *valueLabel; ///< value box at the foot, owned by the object tree
    QString unitText;
    int minValue = 0;
    int maxValue = 0;
    int value = 0;
    int majorStep = 0; ///< tick distances in value units; 0 draws none
    int minorStep = 0;
    bool markerVisible = false;
    int markerSide = 0; ///< 0 left of the bar, 1 right of it
    int markerShape = 0; ///< 0 diamond, 1 triangle
    int markerValue = 0;
    int barLeft; ///< units of the 100 by 300 drawing
    int barTop;
    int barWidth; ///< width of the tick column
    int barGap; ///< room under the bar

signals:
    /// A slow change of the value. It is announced and has no effect: `setValue` alone moves the
    /// bar.
    void sigUpdateValueSlow(int val, int ms);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private slots:
    void OnUpdateValueSlow(int val, int ms);

private:
    void LayOut();
    void PlaceValueLabel();
    QRectF Frame() const;
    void DrawSunkenFrame(QPainter &painter, const QRectF &frame) const;
    void DrawFill(QPainter &painter, const QRectF &frame) const;
    void DrawScale(QPainter &painter, const QRectF &frame) const;
    void DrawMarker(QPainter &painter, const QRectF &frame) const;
};
