#pragma once

#include "WidgetMFA_Panel.h"

/// The panel of the BR 101 and of the driving trailers that share its desk.
class WidgetMFA_BR101 : public WidgetMFA_Panel
{
    Q_OBJECT

public:
    WidgetMFA_BR101(KabdataSettings *windowSettings, TrainData *train, QWidget *parent = nullptr,
                    Qt::WindowFlags windowFlags = {});

    /// Whether a loco of that name has this panel, whatever the case of its letters.
    static bool Serves(const QString &locoName);

protected:
    /// The panel may be left open while another loco takes over, so the name decides here again.
    void FinishConfiguration() override;
};
