#pragma once

#include "TouchIndication.h"
#include "WidgetMTD.h"

#include <memory>

namespace Ui {
class WidgetMFA_BR442;
}

/// The indicator screen of the class 442 family, in the touch frame: the indicators of the other
/// touch screens with messages of its own. The form carries all the pages and keys, as the real
/// unit does, and none of them reacts. Of the frame's keys only "kont" does, for day and night.
class WidgetMFA_BR442 : public WidgetMTD
{
    Q_OBJECT

public:
    explicit WidgetMFA_BR442(KabdataSettings *storage, int style = FrameSiemens,
                             QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~WidgetMFA_BR442() override;

    void OnButton(QAbstractButton *button) override;

public slots:
    void OnUpdateSecondTimer() override;

private:
    static const QVector<RecordRule<WidgetMFA_BR442>> &Rules();
    void FollowSpeed(VControllerBase &record);
    void FollowForce(VControllerBase &record);
    void ToggleDayNight();
    void RecolourEmptyFields();
    void ShadeLightPictures();

    std::unique_ptr<Ui::WidgetMFA_BR442> ui;
    TouchIndication indication;
    QColor labelBackground = Qt::black; ///< of an empty field: that of the page
    bool dayMode = false; ///< the screen starts dark
};
