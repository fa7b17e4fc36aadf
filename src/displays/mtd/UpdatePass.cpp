#include "UpdatePass.h"

#include "ScreenText.h"
#include "ValueBar.h"

void UpdatePass::SetState(QLabel *label, const QString &text, bool on, StateStyle style)
{
    states.insert(label, {text, on, style});
}

void UpdatePass::SetRange(ValueBar *bar, int min, int max)
{
    bars[bar].range = Range{min, max};
}

void UpdatePass::SetRange(ValueBar *bar, int min, int max, int minorStep, int majorStep)
{
    bars[bar].range = Range{min, max, true, minorStep, majorStep};
}

void UpdatePass::Apply(const QColor &pageColor) const
{
    for (auto each = texts.cbegin(); each != texts.cend(); ++each) {
        if (each.key()->text() != each.value())
            each.key()->setText(each.value());
    }
    for (auto each = states.cbegin(); each != states.cend(); ++each)
        SetStateLabel(each.key(), each->text, each->on, each->style, pageColor);
    for (auto each = bars.cbegin(); each != bars.cend(); ++each)
        ApplyTo(each.key(), each.value());
}

namespace {
/// The bar's plain fields ask for a repaint of their own.
void Store(ValueBar *bar, int &field, int value)
{
    if (field == value)
        return;
    field = value;
    bar->update();
}
} // namespace

void UpdatePass::ApplyTo(ValueBar *bar, const Bar &setting)
{
    const std::optional<Range> &range = setting.range;
    if (range && (bar->minValue != range->min || bar->maxValue != range->max)) {
        ScreenText::SetBarRange(bar, range->min, range->max);
        if (range->withSteps) {
            Store(bar, bar->minorStep, range->minorStep);
            Store(bar, bar->majorStep, range->majorStep);
        }
    }
    if (setting.value)
        bar->setValue(*setting.value);
    if (setting.marker)
        Store(bar, bar->markerValue, *setting.marker);
}
