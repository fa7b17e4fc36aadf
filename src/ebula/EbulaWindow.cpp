#include "EbulaWindow.h"

#include "EbulaGraphicsScene.h"
#include "KabdataSettings.h"
#include "WidgetMFD.h"

#include <QGraphicsView>
#include <QIcon>

WidgetMFD *OpenEbulaWindow(KabdataSettings *settings, TrainData *train, Qt::WindowFlags flags)
{
    auto *frame = new WidgetMFD(settings, WidgetMFD::FrameMfd, nullptr, flags);
    frame->setMinimumSize(400, 300);
    // The frame restored its geometry under the larger minimum of its form.
    if (settings != nullptr)
        frame->restoreGeometry(settings->WindowGeometry(frame->windowTitle()));
    frame->setWindowIcon(QIcon(QStringLiteral(":/icons/icon_ebula")));
    // A simulated start of the displays begins on the black page.
    frame->SetPage(WidgetMFD::PageGraphicsView);
    // The scene takes the view's size once, and only a shown view has its own.
    frame->show();
    auto *scene = new EbulaGraphicsScene(settings, frame, train);
    frame->SetScene(scene);
    QObject::connect(frame, &WidgetMFD::sigButtonMenuClicked, scene,
                     &EbulaGraphicsScene::OnButtonMenuClicked);
    return frame;
}

EbulaGraphicsScene *EbulaSceneOf(const WidgetMFD &frame)
{
    return qobject_cast<EbulaGraphicsScene *>(frame.View()->scene());
}
