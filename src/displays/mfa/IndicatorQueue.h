#pragma once

#include <QColor>
#include <QString>
#include <QVector>

class LabelRailjet;

/// How an indicator field looks. An empty text clears it: then it melts into the panel.
struct IndicatorLook
{
    QString text;
    QColor background;
    QColor foreground;
    int pointSize = 10; ///< before it is scaled to the screen
};

/// Brings an indicator field to a look. What already is as it should be is not touched, so that
/// a repeated call costs no repaint.
void ApplyIndicator(LabelRailjet &label, const IndicatorLook &look, const QColor &labelBackground);

/// What one pass does to the indicators of a screen. Several records may set one lamp; only what
/// comes last in the pass is applied, at its end, so that an unchanged state repaints nothing.
///
/// A pass can run inside another one, while a needle sweeps. Both then share the queue of their
/// screen: the inner one applies the outer one's settings with its own, in the order of time.
class IndicatorQueue
{
public:
    /// Does nothing for a null label.
    void SetIndicator(LabelRailjet *label, const QString &text, const QColor &background,
                      const QColor &foreground, int pointSize);
    void SetIndicator(LabelRailjet *label, const IndicatorLook &look);

    /// Applies all settings and forgets them. `labelBackground` is what a cleared field shows.
    void Apply(const QColor &labelBackground);

private:
    struct PendingLabel
    {
        LabelRailjet *label;
        IndicatorLook look;
    };
    QVector<PendingLabel> labels;
};
