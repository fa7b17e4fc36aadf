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
#include <QGraphicsProxyWidget>
#include <QGraphicsTextItem>

#include <memory>

/// A scene that shows its members to a test.
class SceneProbe : public EbulaGraphicsScene
{
public:
    using EbulaGraphicsScene::arrivalItems;
    using EbulaGraphicsScene::clockItem;
    using EbulaGraphicsScene::correctionDone;
    using EbulaGraphicsScene::cursor;
    using EbulaGraphicsScene::delayItem;
    using EbulaGraphicsScene::departureItems;
    using EbulaGraphicsScene::EbulaGraphicsScene;
    using EbulaGraphicsScene::fsdPage;
    using EbulaGraphicsScene::gradientItems;
    using EbulaGraphicsScene::haltePage;
    using EbulaGraphicsScene::headerItem;
    using EbulaGraphicsScene::kmItems;
    using EbulaGraphicsScene::loadView;
    using EbulaGraphicsScene::menuButtons;
    using EbulaGraphicsScene::menuTexts;
    using EbulaGraphicsScene::nameItems;
    using EbulaGraphicsScene::nextStopItem;
    using EbulaGraphicsScene::page;
    using EbulaGraphicsScene::pageStart;
    using EbulaGraphicsScene::pageTimer;
    using EbulaGraphicsScene::speedItem;
    using EbulaGraphicsScene::speedSteps;
    using EbulaGraphicsScene::speedTexts;
    using EbulaGraphicsScene::statusAge;
    using EbulaGraphicsScene::statusItem;
    using EbulaGraphicsScene::symbolItems;
    using EbulaGraphicsScene::tableRect;
    using EbulaGraphicsScene::tickTimer;
    using EbulaGraphicsScene::timeTable;

    /// Presses one frame key after the other.
    void Press(const QStringList &keys)
    {
        for (const QString &key : keys)
            OnButtonMenuClicked(key);
    }
    QStringList Names() const { return TextsOf(nameItems); }
    static QStringList TextsOf(const QList<QGraphicsTextItem *> &items)
    {
        QStringList texts;
        for (const QGraphicsTextItem *item : items)
            texts.append(item->toPlainText());
        return texts;
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
