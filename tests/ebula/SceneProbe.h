#pragma once

#include "EbulaGraphicsScene.h"
#include "PlanFixture.h"
#include "TrainData.h"
#include "WidgetEbulaFSD.h"
#include "WidgetEbulaHalte.h"
#include "WidgetLoadTimeTable.h"
#include "WidgetMFD.h"

#include <QCoreApplication>
#include <QGraphicsPolygonItem>
#include <QGraphicsTextItem>

#include <memory>

/// A scene that shows its members to a test.
class SceneProbe : public EbulaGraphicsScene
{
public:
    using EbulaGraphicsScene::clockItem;
    using EbulaGraphicsScene::correctionDone;
    using EbulaGraphicsScene::cursor;
    using EbulaGraphicsScene::delayItem;
    using EbulaGraphicsScene::EbulaGraphicsScene;
    using EbulaGraphicsScene::fsdPage;
    using EbulaGraphicsScene::haltePage;
    using EbulaGraphicsScene::headerItem;
    using EbulaGraphicsScene::kmItems;
    using EbulaGraphicsScene::loadView;
    using EbulaGraphicsScene::nameItems;
    using EbulaGraphicsScene::nextStopItem;
    using EbulaGraphicsScene::page;
    using EbulaGraphicsScene::pageStart;
    using EbulaGraphicsScene::pageTimer;
    using EbulaGraphicsScene::statusItem;
    using EbulaGraphicsScene::tickTimer;
    using EbulaGraphicsScene::timeTable;

    /// Presses one frame key after the other.
    void Press(const QStringList &keys)
    {
        for (const QString &key : keys)
            OnButtonMenuClicked(key);
    }
};

/// A shown frame with a scene, and the train that it follows.
class EbulaStand
{
public:
    explicit EbulaStand(KabdataSettings *settings = nullptr)
        : frame(std::make_unique<WidgetMFD>(settings, WidgetMFD::FrameMfd))
    {
        frame->setAttribute(Qt::WA_DeleteOnClose, false);
        frame->show();
        scene = new SceneProbe(settings, frame.get(), &train);
        frame->SetScene(scene);
        QObject::connect(frame.get(), &WidgetMFD::sigButtonMenuClicked, scene.data(),
                         &EbulaGraphicsScene::OnButtonMenuClicked);
    }

    void PutTrainAt(const TimeTableEntry &entry, int hour = 8, int minute = 0, int second = 0)
    {
        train.latitude = entry.lat;
        train.longitude = entry.lon;
        train.hour = hour;
        train.minute = minute;
        train.second = second;
    }

    /// Lets all repaints that are under way come to their end; labels need a second pass.
    static void Settle()
    {
        for (int pass = 0; pass < 5; ++pass)
            QCoreApplication::processEvents();
    }

    TrainData train;
    std::unique_ptr<WidgetMFD> frame;
    QPointer<SceneProbe> scene;
};
