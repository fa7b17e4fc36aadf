#include "WidgetMFA_BR101.h"

#include "LocoData.h"
#include "PanelFace.h"
#include "PanelLamps.h"
#include "PanelRules.h"

#include "ui_WidgetMFA_BR101.h"

#include <algorithm>
#include <iterator>

namespace {
constexpr const char *kNames[] = {"BR101", "BR 101", "vR_Apmbzf"};
constexpr int kTwoTonePointer = 1;
} // namespace

WidgetMFA_BR101::WidgetMFA_BR101(KabdataSettings *windowSettings, TrainData *train, QWidget *parent,
                                 Qt::WindowFlags windowFlags)
    : WidgetMFA_Panel(windowSettings, train, parent, windowFlags, RulesOfBr101())
{
    Ui::WidgetMFA_BR101 form;
    form.setupUi(this);
    setPalette(PanelPalette());
    Open({form.widget_speed, form.widget_traktion, form.widget_LZB}, form.frame_lamps);
}

bool WidgetMFA_BR101::Serves(const QString &locoName)
{
    return std::any_of(std::begin(kNames), std::end(kNames), [&locoName](const char *name) {
        return locoName.contains(QLatin1String(name), Qt::CaseInsensitive);
    });
}

void WidgetMFA_BR101::FinishConfiguration()
{
    const bool served = locoData != nullptr && Serves(locoData->locoName);
    dials.SetNeedleStyle(served ? kTwoTonePointer : 0);
    if (!served)
        return;
    lamps->SetColors(PanelLamp::HoheAbbremsung, AlarmLampColors());
    for (const PanelLamp lamp :
         {PanelLamp::ElektrischeBremse, PanelLamp::Zugsammelschiene, PanelLamp::Hauptschalter})
        lamps->SetColors(lamp, ReportLampColors());
}
