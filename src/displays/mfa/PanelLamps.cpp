#include "PanelLamps.h"

#include "ControlLight.h"

namespace {
const LampColors kReport{{231, 211, 165}, {112, 128, 148}, Qt::black};
const LampColors kSwitch{{40, 40, 40}, Qt::black, Qt::white};
const LampColors kNotice{{221, 126, 48}, {85, 70, 30}, Qt::black};
const LampColors kProtection{{44, 75, 143}, {32, 53, 135}, Qt::white};
const LampColors k500Hz{Qt::red, {67, 13, 17}, Qt::black};
const LampColors k1000Hz{Qt::yellow, {85, 70, 30}, Qt::black};
const LampColors kAlarm{Qt::red, {67, 13, 17}, Qt::white};
const LampColors kBlank{{58, 62, 66}, {58, 62, 66}, Qt::white}; // never lit, so seen dimmed

constexpr const char *kBlankNames[] = {"label_oben_2", "label_oben_3", "label_unten_2",
                                       "label_unten_3"};

ControlLight *Find(const QWidget &form, const char *name)
{
    auto *lamp = form.findChild<ControlLight *>(QLatin1String(name));
    Q_ASSERT_X(lamp != nullptr, "PanelLamps", name);
    return lamp;
}
} // namespace

const std::array<LampLook, kPanelLampCount> &LampLooks()
{
    static const std::array<LampLook, kPanelLampCount> looks{{
        {PanelLamp::ElektrischeBremse, "label_elektronischeBremse", kReport},
        {PanelLamp::Zugsammelschiene, "label_zugsammelschiene", kReport},
        {PanelLamp::Sifa, "label_sifa", kReport},
        {PanelLamp::PrueftasteLampen, "label_prueftaste_lampen", kReport},
        {PanelLamp::Befehl40, "label_pzb_befehl40", kReport},
        {PanelLamp::E40, "label_light_e40", kReport},
        {PanelLamp::EL, "label_light_el", kReport},
        {PanelLamp::V40, "label_light_v40", kReport},
        {PanelLamp::PruefStoerung, "label_light_pruef_stoerung", kReport},
        {PanelLamp::HoheAbbremsung, "label_hohe_abbremsung", kSwitch},
        {PanelLamp::Hauptschalter, "label_hauptschalter", kSwitch},
        {PanelLamp::Tueren, "label_tueren", kNotice},
        {PanelLamp::Ende, "label_light_ende", kNotice},
        {PanelLamp::Pzb85, "label_pzb_85", kProtection},
        {PanelLamp::Pzb70, "label_pzb_70", kProtection},
        {PanelLamp::Pzb55, "label_pzb_55", kProtection},
        {PanelLamp::B, "label_light_b", kProtection},
        {PanelLamp::Ue, "label_light_ue", kProtection},
        {PanelLamp::Pzb500Hz, "label_pzb_500hz", k500Hz},
        {PanelLamp::Pzb1000Hz, "label_pzb_1000hz", k1000Hz},
        {PanelLamp::H, "label_light_h", kAlarm},
        {PanelLamp::G, "label_light_g", kAlarm},
        {PanelLamp::S, "label_light_s", kAlarm},
        {PanelLamp::Notbremse, "label_notbremse", kAlarm},
    }};
    return looks;
}

const LampColors &ReportLampColors()
{
    return kReport;
}

const LampColors &AlarmLampColors()
{
    return kAlarm;
}

PanelLamps::PanelLamps(const QWidget &form)
{
    for (const LampLook &each : LampLooks())
        lamps[static_cast<std::size_t>(each.lamp)] = Find(form, each.objectName);
    for (std::size_t at = 0; at < blanks.size(); ++at)
        blanks[at] = Find(form, kBlankNames[at]);
}

void PanelLamps::SetColors(PanelLamp lamp, const LampColors &colors)
{
    At(lamp)->setColors(colors.on, colors.off, colors.text);
}

void PanelLamps::ResetColors()
{
    for (const LampLook &each : LampLooks())
        SetColors(each.lamp, each.colors);
    for (ControlLight *blank : blanks)
        blank->setColors(kBlank.on, kBlank.off, kBlank.text);
}

void PanelLamps::Read(PanelState &state) const
{
    for (std::size_t at = 0; at < lamps.size(); ++at)
        state.lit[at] = lamps[at]->lit;
}

void PanelLamps::Show(const PanelState &state)
{
    for (std::size_t at = 0; at < lamps.size(); ++at)
        lamps[at]->setLit(state.lit[at]);
}
