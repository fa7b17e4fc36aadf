// The EBuLa's tick over a plan of ten thousand rows, which may cost 2 ms where it turns no page,
// and a redraw of twelve rows beside the floor of building and rendering as many bare items, which
// it may exceed by half.

#include "EbulaGraphicsScene.h"
#include "TrainData.h"
#include "WidgetMFD.h"

#include <QGraphicsItem>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace {
TrainTimeTable PlanOf(int rows)
{
    TrainTimeTable plan;
    plan.Vmax = 160;
    for (int i = 0; i < rows; ++i) {
        TimeTableEntry entry;
        entry.index = i;
        // All on one parallel, so that no row is told far by its latitude alone.
        entry.lat = 50.9424F;
        entry.lon = 6.95855F + 0.002F * static_cast<float>(i);
        entry.distance = 0.1F * static_cast<float>(i);
        entry.speed = 80;
        entry.name = QStringLiteral("Köln Süd %1").arg(i);
        if (i % 4 == 0) {
            entry.type = StopStation;
            entry.arrival = QStringLiteral("08:10:00");
            entry.departure = QStringLiteral("08:11:00");
        }
        plan.entries.append(entry);
    }
    return plan;
}

class SceneAtWork : public EbulaGraphicsScene
{
public:
    using EbulaGraphicsScene::EbulaGraphicsScene;
    using EbulaGraphicsScene::page;
    using EbulaGraphicsScene::timeTable;

    /// What a redraw of the page builds.
    QList<const QGraphicsItem *> RowItems() const
    {
        QList<const QGraphicsItem *> items;
        for (const auto *column :
             {&nameItems, &symbolItems, &kmItems, &arrivalItems, &departureItems, &gradientItems}) {
            for (const QGraphicsTextItem *item : *column)
                items.append(item);
        }
        for (const auto *profile : {&speedLines, &speedSteps, &speedTexts}) {
            for (const QGraphicsItem *item : *profile)
                items.append(item);
        }
        return items;
    }
};

struct Stand
{
    Stand() : frame(nullptr, WidgetMFD::FrameMfd)
    {
        frame.show();
        scene = new SceneAtWork(nullptr, &frame, &train);
        frame.SetScene(scene);
    }
    TrainData train;
    WidgetMFD frame;
    SceneAtWork *scene = nullptr;
};

void PutTrainAt(TrainData &train, const TimeTableEntry &entry)
{
    train.latitude = entry.lat;
    train.longitude = entry.lon;
    train.hour = 8;
}

/// `range(0)` is the row where the train stands; none of the rows behind the start has a stop
/// where `range(1)` is 0, which makes the reckoning of passing times as long as the plan.
void TickOverTenThousandRows(benchmark::State &state)
{
    Stand stand;
    TrainTimeTable plan = PlanOf(10000);
    for (int i = 1; state.range(1) == 0 && i < plan.entries.size(); ++i)
        plan.entries[i].type = StopNone;
    PutTrainAt(stand.train, plan.entries.at(int(state.range(0))));
    stand.scene->TakePlan(plan);
    // The first ticks correct the times and settle the page.
    for (int i = 0; i < 3; ++i)
        stand.scene->OnTimeOneSeconds();
    const int bottom = stand.scene->page.pageIndex.last();
    for (auto _ : state) {
        stand.train.second = (stand.train.second + 1) % 60;
        stand.scene->OnTimeOneSeconds();
    }
    if (stand.scene->page.pageIndex.last() != bottom)
        state.SkipWithError("the page turned");
}

QGraphicsItem *BareCopy(const QGraphicsItem *item)
{
    if (const auto *text = qgraphicsitem_cast<const QGraphicsTextItem *>(item)) {
        auto *copy = new QGraphicsTextItem(text->toPlainText());
        copy->setFont(text->font());
        copy->setPos(text->pos());
        return copy;
    }
    const auto *line = qgraphicsitem_cast<const QGraphicsLineItem *>(item);
    if (line == nullptr)
        return nullptr;
    auto *copy = new QGraphicsLineItem(line->line());
    copy->setPen(line->pen());
    return copy;
}

QList<QGraphicsItem *> AddCopies(const QList<const QGraphicsItem *> &items, QGraphicsScene &to)
{
    QList<QGraphicsItem *> copies;
    for (const QGraphicsItem *item : items) {
        QGraphicsItem *copy = BareCopy(item);
        if (copy == nullptr)
            continue;
        to.addItem(copy);
        copies.append(copy);
    }
    return copies;
}

void Render(QGraphicsScene &scene, QImage &image)
{
    QPainter painter(&image);
    scene.render(&painter);
}

QImage Canvas(const QGraphicsScene &scene)
{
    return QImage(scene.sceneRect().size().toSize(), QImage::Format_RGB32);
}

void TwelveRowsInBareItems(benchmark::State &state)
{
    Stand stand;
    stand.scene->timeTable = PlanOf(40);
    stand.scene->RenderTimeTable(5);
    QImage image = Canvas(*stand.scene);
    const QList<const QGraphicsItem *> rows = stand.scene->RowItems();
    QList<const QGraphicsItem *> rest;
    const auto items = stand.scene->items();
    for (const QGraphicsItem *item : items) {
        if (!rows.contains(item))
            rest.append(item);
    }
    QGraphicsScene bare(stand.scene->sceneRect());
    bare.setItemIndexMethod(QGraphicsScene::NoIndex);
    AddCopies(rest, bare);
    for (auto _ : state) {
        const QList<QGraphicsItem *> copies = AddCopies(rows, bare);
        Render(bare, image);
        qDeleteAll(copies);
    }
}

void TwelveRowsRedrawn(benchmark::State &state)
{
    Stand stand;
    stand.scene->timeTable = PlanOf(40);
    QImage image = Canvas(*stand.scene);
    int start = 5;
    for (auto _ : state) {
        start = start == 5 ? 6 : 5; // another page each time, or nothing would be drawn
        stand.scene->RenderTimeTable(start);
        Render(*stand.scene, image);
    }
}
} // namespace

BENCHMARK(TickOverTenThousandRows)->Args({5, 1})->Args({9000, 1})->Args({9000, 0});
BENCHMARK(TwelveRowsInBareItems);
BENCHMARK(TwelveRowsRedrawn);
