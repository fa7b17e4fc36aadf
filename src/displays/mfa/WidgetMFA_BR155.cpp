#include "WidgetMFA_BR155.h"

#include "PanelFace.h"
#include "PanelRules.h"
#include "Speedometer.h"

#include "ui_WidgetMFA_BR155.h"

WidgetMFA_BR155::WidgetMFA_BR155(KabdataSettings *windowSettings, TrainData *train, QWidget *parent,
                                 Qt::WindowFlags windowFlags)
    : WidgetMFA_Panel(windowSettings, train, parent, windowFlags, RulesOfBr155())
{
    Ui::WidgetMFA_BR155 form;
    form.setupUi(this);
    setPalette(PanelPalette());
    Open({form.widget_speed, form.widget_traktion, form.frame_LZB}, form.frame_lamps);
}

void WidgetMFA_BR155::FinishConfiguration()
{
    dials.speed->setCentreValueVisible(true);
}
