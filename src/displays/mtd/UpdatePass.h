#pragma once

#include "StateLabel.h"

#include <QHash>
#include <QString>

#include <optional>

class ValueBar;

/// Collects what one update pass wants to show. The last setting of a widget stands and is applied
/// once at the end, so that two records which feed one label, or a label that is written twice in a
/// pass, cannot make it flicker. What stands already is not set again.
class UpdatePass
{
public:
    void SetText(QLabel *label, const QString &text) { texts.insert(label, text); }
    void SetState(QLabel *label, const QString &text, bool on, StateStyle style);
    void SetValue(ValueBar *bar, int value) { bars[bar].value = value; }
    void SetMarker(ValueBar *bar, int value) { bars[bar].marker = value; }
    /// A bar that has the range already keeps its steps too.
    void SetRange(ValueBar *bar, int min, int max);
    void SetRange(ValueBar *bar, int min, int max, int minorStep, int majorStep);

    /// `pageColor` is the background of a state that is off on the page.
    void Apply(const QColor &pageColor) const;

private:
    struct State
    {
        QString text;
        bool on = false;
        StateStyle style = StateOnPage;
    };
    struct Range
    {
        int min = 0;
        int max = 0;
        bool withSteps = false;
        int minorStep = 0;
        int majorStep = 0;
    };
    struct Bar
    {
        std::optional<int> value;
        std::optional<int> marker;
        std::optional<Range> range;
    };
    static void ApplyTo(ValueBar *bar, const Bar &setting);

    QHash<QLabel *, QString> texts;
    QHash<QLabel *, State> states;
    QHash<ValueBar *, Bar> bars;
};
