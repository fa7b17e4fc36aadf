#pragma once

#include "WidgetMFA_Panel.h"

/// The panel of the BR 155, with the speed as a number on the hub of its dial.
class WidgetMFA_BR155 : public WidgetMFA_Panel
{
    Q_OBJECT

public:
    WidgetMFA_BR155(KabdataSettings *windowSettings, TrainData *train, QWidget *parent = nullptr,
                    Qt::WindowFlags windowFlags = {});

protected:
    void FinishConfiguration() override;
};
