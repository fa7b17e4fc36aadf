#pragma once

#include <QHash>
#include <QObject>

class QWidget;
class ValueBar;

/// Lets the text of a screen grow with its window. The frame and its keys grow as one drawing;
/// text that kept its size would be lost on a large screen. It never gets smaller than it was
/// designed, and a screen that is only higher or only wider keeps its text.
///
/// Widgets that are taken must live as long as this object is asked to grow them.
class ScreenText : public QObject
{
    Q_OBJECT

public:
    /// Takes the present sizes of all plain labels, lamps, fields and tables on a page as designed,
    /// and the value boxes of its bars. Instruments scale their own drawing and are left alone.
    /// A value box goes with the drawing of its bar.
    void Take(QWidget *page);
    /// Designs a size anew for a widget and brings the widget to it.
    void SetPointSize(QWidget *widget, double pointSize);
    /// The scale that everything has from now on; below 1 counts as 1.
    void Grow(double newFactor);
    double Factor() const { return factor; }

    /// Gives a bar its range where it differs, and its value box the size for it.
    static void SetBarRange(ValueBar *bar, int min, int max);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Apply(QWidget *widget, double pointSize) const;
    static void FitValueBox(const ValueBar *bar);

    QHash<QWidget *, double> designed; ///< point sizes
    double factor = 1.0;
};
