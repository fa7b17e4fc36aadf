#pragma once

#include <QWidget>

/// The grade as a line across the widget. A level track lies 300 pixels down, whatever the height,
/// and a climb rises to the right.
class WidgetTrack : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetTrack(QWidget *parent = nullptr);

    /// Repaints only when the grade changes; one that is no number is passed over.
    void setValue(double grade);

    double value = 0.0; ///< grade

protected:
    void paintEvent(QPaintEvent *event) override;
};
