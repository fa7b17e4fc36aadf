#include "WidgetMFA_BR145.h"

#include "PanelFace.h"
#include "PanelRules.h"

#include "ui_WidgetMFA_BR145.h"

WidgetMFA_BR145::WidgetMFA_BR145(KabdataSettings *windowSettings, TrainData *train, QWidget *parent,
                                 Qt::WindowFlags windowFlags)
    : WidgetMFA_Panel(windowSettings, train, parent, windowFlags, RulesOfBr145())
{
    Ui::WidgetMFA_BR145 form;
    form.setupUi(this);
    setPalette(PanelPalette());
    Open({form.widget_speed, form.widget_traktion, form.widget_LZB}, form.frame_lamps);
}
