// The OpenStreetMap import against a bare pass of the XML reader over the same file, on three
// sizes, and a wheel step of its window against bare painting of the same paths. 200,000 nodes
// with 30,000 ways are the railways of a country.

#include "OsmReader.h"
#include "RoutePaths.h"
#include "WidgetDrawRoute.h"

#include <QCoreApplication>
#include <QFile>
#include <QGraphicsView>
#include <QPainter>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <cmath>

namespace {
/// A file with so many nodes, and ways of seven of them each with the tags of a railway.
QString Extract(int nodes)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QString::number(nodes));
    QFile file(path);
    if (file.exists() || !file.open(QIODevice::WriteOnly))
        return path;
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<osm version=\"0.6\">\n");
    for (int i = 1; i <= nodes; ++i) {
        const double turn = i * 0.0007;
        file.write(QStringLiteral("  <node id=\"%1\" lat=\"%2\" lon=\"%3\" version=\"4\" "
                                  "timestamp=\"2024-05-06T07:08:09Z\" changeset=\"151515\"/>\n")
                       .arg(i)
                       .arg(50.0 + std::sin(turn) + i * 1e-6, 0, 'f', 7)
                       .arg(7.0 + std::cos(turn * 1.3) + i * 1e-6, 0, 'f', 7)
                       .toLatin1());
    }
    const int ways = nodes * 3 / 20;
    constexpr int kNodesOfWay = 7;
    for (int way = 1; way <= ways; ++way) {
        file.write(QStringLiteral("  <way id=\"%1\" version=\"2\">\n").arg(way).toLatin1());
        for (int i = 0; i < kNodesOfWay; ++i) {
            const int id = (way * kNodesOfWay + i) % nodes + 1;
            file.write(QStringLiteral("    <nd ref=\"%1\"/>\n").arg(id).toLatin1());
        }
        file.write("    <tag k=\"railway\" v=\"rail\"/>\n    <tag k=\"usage\" v=\"branch\"/>\n"
                   "    <tag k=\"name\" v=\"Linke Rheinstrecke\"/>\n  </way>\n");
    }
    file.write("</osm>\n");
    return path;
}

void Count(benchmark::State &state, const QString &path)
{
    state.SetBytesProcessed(state.iterations() * QFileInfo(path).size());
    state.SetComplexityN(state.range(0));
}

/// The floor: every token once, and nothing made of it.
void BareXmlPass(benchmark::State &state)
{
    const QString path = Extract(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QXmlStreamReader xml(&file);
        int starts = 0;
        while (!xml.atEnd())
            starts += xml.readNext() == QXmlStreamReader::StartElement ? 1 : 0;
        benchmark::DoNotOptimize(starts);
    }
    Count(state, path);
}

/// Reading and building the paths: all of the import but the window.
void Import(benchmark::State &state)
{
    const int nodes = static_cast<int>(state.range(0));
    const QString path = Extract(nodes);
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly | QIODevice::Text);
        const OsmNetwork network = ReadOsm(file);
        const auto paths = NormalisePaths(ProjectWays(network.nodes, network.ways), 200.0);
        if (network.nodes.size() != nodes || paths.size() != nodes * 3 / 20) {
            state.SkipWithError("not all was read");
            break;
        }
    }
    Count(state, path);
}

WidgetDrawRoute &Window()
{
    static auto &window = *new WidgetDrawRoute; // must not outlive the application
    if (window.nodes.isEmpty()) {
        QFile file(Extract(200000));
        file.open(QIODevice::ReadOnly | QIODevice::Text);
        OsmNetwork network = ReadOsm(file);
        window.nodes = network.nodes;
        window.ways = network.ways;
        window.BuildAndShow();
        QCoreApplication::processEvents();
    }
    return window;
}

/// The floor: the same paths through the same transformation into a picture of the same size.
void BarePainting(benchmark::State &state)
{
    const auto *view = Window().findChild<QGraphicsView *>();
    const QVector<RoutePath> paths = Window().Paths();
    QImage image(view->viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    double factor = 1.15;
    QTransform transform = view->viewportTransform();
    for (auto _ : state) {
        transform.scale(factor, factor);
        factor = 1.0 / factor;
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setTransform(transform);
        for (const RoutePath &each : paths) {
            painter.setPen(each.color);
            painter.drawPath(each.path);
        }
    }
}

void WheelStep(benchmark::State &state)
{
    QWidget *viewport = Window().findChild<QGraphicsView *>()->viewport();
    const QPoint at = viewport->rect().topLeft();
    int delta = 120;
    for (auto _ : state) {
        QWheelEvent wheel(at, viewport->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport, &wheel);
        delta = -delta;
        QCoreApplication::processEvents();
    }
}
} // namespace

BENCHMARK(BareXmlPass)->Arg(50000)->Arg(100000)->Arg(200000)->Unit(benchmark::kMillisecond);
BENCHMARK(Import)
    ->Arg(50000)
    ->Arg(100000)
    ->Arg(200000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BarePainting)->Unit(benchmark::kMillisecond);
BENCHMARK(WheelStep)->Unit(benchmark::kMillisecond);
