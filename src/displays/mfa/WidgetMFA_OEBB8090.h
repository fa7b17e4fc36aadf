#pragma once

#include "TouchIndication.h"
#include "WidgetMFA.h"

#include <memory>

namespace Ui {
class WidgetMFA_OEBB8090;
}

/// The screen of the 8090 control car: the indicators of the Railjet screen without its dialogue.
/// The form carries all the pages and keys, as the real unit does, and none of them reacts.
class WidgetMFA_OEBB8090 : public WidgetMFA
{
    Q_OBJECT

public:
    WidgetMFA_OEBB8090(KabdataSettings *windowSettings, TrainData *train, QWidget *parent = nullptr,
                       Qt::WindowFlags windowFlags = {});
    ~WidgetMFA_OEBB8090() override;

public slots:
    void OnUpdateSecondTimer() override;

private:
    static const QVector<RecordRule<WidgetMFA_OEBB8090>> &Rules();
    void FollowSpeed(VControllerBase &record);
    void FollowForce(VControllerBase &record);
    void ShowSupervision(VControllerBase &record);
    void ShowForcedBraking(VControllerBase &record);
    void ShowMessage(const QString &text, const QColor &background, const QColor &foreground);

    std::unique_ptr<Ui::WidgetMFA_OEBB8090> ui;
    TouchIndication indication;
};

/// The speed in km/h that the PZB supervises in a state, 0 when it supervises none. `kind` is the
/// value of the `Zugart` record.
int SupervisedSpeed(int pzbState, int kind);
