#pragma once

#include "WidgetMFA_Panel.h"

/// The panel of the BR 145.
class WidgetMFA_BR145 : public WidgetMFA_Panel
{
    Q_OBJECT

public:
    WidgetMFA_BR145(KabdataSettings *windowSettings, TrainData *train, QWidget *parent = nullptr,
                    Qt::WindowFlags windowFlags = {});
};
