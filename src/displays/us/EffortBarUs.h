#pragma once

#include <QWidget>

/// Tractive effort in klb: a scale with a bar that fills from below, and the number at the foot.
/// Braking fills by its amount in another colour.
class EffortBarUs : public QWidget
{
    Q_OBJECT

public:
    explicit EffortBarUs(QWidget *parent = nullptr);

    /// Repaints only when the effort changes.
    void setValue(int effort);

    int value = 0;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawScale(QPainter &painter, const QRectF &bar) const;
};
