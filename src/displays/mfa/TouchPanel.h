#pragma once

class LabelRailjet;
class LZBDisplayRailjet;
class Speedometer;
class ZugkraftDisplay;

/// The instruments and indicator fields that the touch screens have in common, under the same
/// object names in each of their forms. Observed; the form owns them.
struct TouchPanel
{
    Speedometer *speedometer = nullptr;
    ZugkraftDisplay *zugkraft = nullptr;
    LZBDisplayRailjet *lzbDisplay = nullptr;
    LabelRailjet *lm1 = nullptr;
    LabelRailjet *lm2 = nullptr;
    LabelRailjet *lm3 = nullptr;
    LabelRailjet *lm4 = nullptr;
    LabelRailjet *lm5 = nullptr;
    LabelRailjet *lm6 = nullptr;
    LabelRailjet *lm8 = nullptr;
    LabelRailjet *lm13 = nullptr;
    LabelRailjet *tuer = nullptr;
    LabelRailjet *sifa = nullptr;
    LabelRailjet *zugkraftText = nullptr;
    LabelRailjet *bremse = nullptr;
};

/// The panel of a generated form.
template <typename Form>
TouchPanel BindTouchPanel(const Form &form)
{
    return {form.widget_speedometer, form.widget_zugkraft, form.label_lzb_display,
            form.label_lm1,          form.label_lm2,       form.label_lm3,
            form.label_lm4,          form.label_lm5,       form.label_lm6,
            form.label_lm8,          form.label_lm13,      form.label_lm_tuer,
            form.label_sifa,         form.label_zugkraft,  form.label_bremse};
}
