#include "IndicatorQueue.h"

#include "DpiRatio.h"
#include "LabelRailjet.h"

#include <algorithm>
#include <utility>

void ApplyIndicator(LabelRailjet &label, const IndicatorLook &look, const QColor &labelBackground)
{
    QFont font = label.font();
    font.setPointSize(ScaledPointSize(look.pointSize));
    if (font != label.font())
        label.QLabel::setFont(font); // the label's own setFont would scale once more

    QPalette colors = label.palette();
    colors.setColor(QPalette::Window, look.text.isEmpty() ? labelBackground : look.background);
    colors.setColor(QPalette::WindowText, look.foreground);
    if (colors != label.palette())
        label.setPalette(colors);

    label.setTextIfChanged(look.text);
}

void IndicatorQueue::SetIndicator(LabelRailjet *label, const QString &text,
                                  const QColor &background, const QColor &foreground, int pointSize)
{
    SetIndicator(label, {text, background, foreground, pointSize});
}

void IndicatorQueue::SetIndicator(LabelRailjet *label, const IndicatorLook &look)
{
    if (label == nullptr)
        return;
    const auto known = std::find_if(labels.begin(), labels.end(),
                                    [label](const PendingLabel &p) { return p.label == label; });
    if (known != labels.end())
        known->look = look;
    else
        labels.append({label, look});
}

void IndicatorQueue::Apply(const QColor &labelBackground)
{
    for (const PendingLabel &each : std::exchange(labels, {}))
        ApplyIndicator(*each.label, each.look, labelBackground);
}
