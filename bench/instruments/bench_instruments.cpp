// What a full repaint of the heavy instruments costs, beside the same primitives drawn by a bare
// painter into the same image. Ratios up to 1.3 are allowed.

#include "LZBDisplayBR145.h"
#include "LedFont.h"
#include "Speedometer.h"
#include "ZugkraftDisplay.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <benchmark/benchmark.h>

#ifdef ZUGBLICK_HAVE_QWT
#include <qwt_dial.h>
#include <qwt_dial_needle.h>
#include <qwt_round_scale_draw.h>
#endif

namespace {
QImage MakeImage(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::darkGray);
    return image;
}

void PaintWidget(benchmark::State &state, QWidget &widget, const QSize &size)
{
    widget.resize(size);
    QImage image = MakeImage(size);
    for (auto _ : state)
        widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
}

template <typename Draw>
void PaintBare(benchmark::State &state, const QSize &size, Draw draw)
{
    QImage image = MakeImage(size);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        draw(painter);
    }
}

void CentredText(QPainter &painter, double x, double y, const QString &text)
{
    painter.drawText(QPointF(x - painter.fontMetrics().horizontalAdvance(text) / 2.0, y), text);
}

// ---- the speed dial, 0 to 240 km/h with both markers and the LED box -----------------------

void SpeedometerPaint(benchmark::State &state)
{
    Speedometer dial;
    dial.speed = 137;
    dial.ledVisible = dial.targetMarkerVisible = dial.limitMarkerVisible = true;
    dial.ledValue = 160;
    dial.limitMarkerSpeed = 160;
    dial.targetMarkerSpeed = 140;
    PaintWidget(state, dial, QSize(400, 400));
}

void BareSpeedScale(QPainter &painter)
{
    const double lengths[] = {20, 10, 24, 10};
    const double widths[] = {1, 0.5, 1, 0.5};
    for (int i = 0; i <= 48; ++i) {
        painter.setPen(QPen(Qt::white, widths[i % 4]));
        painter.rotate(i * 280.0 / 48 - 140);
        painter.drawLine(QPointF(0, -190), QPointF(0, lengths[i % 4] - 190));
        painter.rotate(140 - i * 280.0 / 48);
    }
    for (int i = 0; i <= 12; ++i) {
        const double angle = qDegreesToRadians(i * 285.0 / 12 + 128);
        CentredText(painter, int(std::cos(angle) * 140), int(std::sin(angle) * 140),
                    QString::number(20 * i));
    }
}

void BareSpeedMarkers(QPainter &painter)
{
    painter.save();
    painter.setPen(Qt::white);
    painter.setBrush(Qt::magenta);
    painter.rotate(23);
    painter.drawEllipse(QRectF(-5, -185, 10, 10));
    painter.restore();
    painter.save();
    painter.setPen(Qt::red);
    painter.setBrush(Qt::red);
    painter.rotate(46);
    painter.drawPolygon(QPolygonF({{0, -185}, {-5, -195}, {5, -195}}));
    painter.restore();
}

void BareLedBox(QPainter &painter, const QFont &font)
{
    const QRectF box(-30, 130, 60, 35);
    painter.fillRect(box, QColor(40, 40, 40));
    painter.setFont(font);
    const double squeeze = 60.0 / painter.fontMetrics().horizontalAdvance(QStringLiteral("888"));
    painter.translate(box.topLeft());
    painter.scale(squeeze, 1);
    painter.setPen(QColor(50, 50, 50));
    painter.drawText(QRectF(0, 0, 60 / squeeze, 35), QStringLiteral("888"));
    painter.setPen(QColor(177, 145, 83));
    painter.drawText(QRectF(0, 0, 60 / squeeze, 35), QStringLiteral("160"));
}

void SpeedometerFloor(benchmark::State &state)
{
    const QFont led = LedFont(35);
    PaintBare(state, QSize(400, 400), [&led](QPainter &painter) {
        painter.translate(200, 200);
        painter.setPen(Qt::black);
        painter.setBrush(Qt::black);
        painter.drawEllipse(-200, -200, 400, 400);
        BareSpeedScale(painter);
        painter.setPen(Qt::white);
        painter.setBrush(Qt::white);
        painter.save();
        painter.rotate(137 * 280.0 / 240 - 140);
        painter.drawRect(-2, -130, 4, 130);
        painter.restore();
        painter.drawEllipse(QPointF(0, 0), 25, 25);
        CentredText(painter, 0, 60, QStringLiteral("km/h"));
        BareSpeedMarkers(painter);
        painter.setPen(Qt::black);
        CentredText(painter, 0, 6, QStringLiteral("137"));
        BareLedBox(painter, led);
    });
}

#ifdef ZUGBLICK_HAVE_QWT
/// The dial with its cache thrown away before each paint, as a needle on a scale that changes.
class UncachedDial : public QwtDial
{
public:
    using QwtDial::invalidateCache;
};

void QwtDialPaint(benchmark::State &state)
{
    UncachedDial dial;
    dial.setScaleArc(40, 320);
    dial.setScale(0, 240);
    dial.setScaleMaxMajor(13);
    dial.setScaleMaxMinor(4);
    dial.setNeedle(new QwtDialSimpleNeedle(QwtDialSimpleNeedle::Arrow));
    dial.setValue(137);
    dial.resize(400, 400);
    QImage image = MakeImage(dial.size());
    for (auto _ : state) {
        dial.invalidateCache();
        dial.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    }
}
#endif

// ---- the LED bar, half lit, with digits -----------------------------------------------------

void LzbBarPaint(benchmark::State &state)
{
    LZBDisplayBR145 bar;
    bar.setDistance(4100);
    PaintWidget(state, bar, QSize(200, 400));
}

void BareLzbScale(QPainter &painter, QFont font)
{
    const char *labels[] = {"4000", "3000", "2000", "1000", "750", "500", "250", "100", "0"};
    const int minorLines[] = {4, 4, 4, 4, 4, 4, 2, 3, 0};
    const double pitch = 515.0 / 38;
    double y = 210 + pitch / 2;
    for (int i = 0; i < 9; ++i) {
        painter.setPen(QPen(QColor(50, 50, 50), 2));
        painter.drawLine(150, int(y), 320, int(y));
        font.setPointSize(i == 7 ? 20 : 40);
        painter.setFont(font);
        painter.setPen(Qt::white);
        const QString label = QLatin1String(labels[i]);
        const double width = painter.fontMetrics().horizontalAdvance(label);
        painter.drawText(QPointF(325 - width, y - 4), label);
        y += pitch;
        painter.setPen(QPen(QColor(50, 50, 50), 1));
        for (int k = 0; k < minorLines[i]; ++k, y += pitch)
            painter.drawLine(150, int(y), i >= 3 && i < 7 ? 190 : 200, int(y));
    }
}

void LzbBarFloor(benchmark::State &state)
{
    const QFont led = LedFont(80);
    const QColor dark(50, 50, 50);
    const QColor lit(177, 145, 83);
    PaintBare(state, QSize(200, 400), [&](QPainter &painter) {
        painter.scale(0.5, 0.5);
        painter.setPen(QColor(20, 20, 20));
        painter.setBrush(QColor(20, 20, 20));
        painter.drawRect(70, 70, 260, 660);
        painter.fillRect(QRect(80, 80, 240, 80), QColor(40, 40, 40));
        const QFont plain = painter.font();
        painter.save();
        painter.setFont(led);
        const double squeeze =
            qMin(1.0, 240.0 / painter.fontMetrics().horizontalAdvance(QStringLiteral("8888")));
        painter.translate(80, 80);
        painter.scale(squeeze, 1);
        painter.setPen(dark);
        painter.drawText(QRectF(0, 0, 240 / squeeze, 80), QStringLiteral("8888"));
        painter.setPen(lit);
        painter.drawText(QRectF(0, 0, 240 / squeeze, 80), QStringLiteral("4100"));
        painter.restore();
        painter.fillRect(QRect(80, 210, 70, 515), QColor(40, 40, 40));
        for (int i = 0; i < 38; ++i)
            painter.fillRect(QRect(82, int(210 + i * 515.0 / 38), 65, 10), lit);
        BareLzbScale(painter, plain);
    });
}

// ---- the force ring --------------------------------------------------------------------------

void ForceRingPaint(benchmark::State &state)
{
    ZugkraftDisplay ring;
    ring.setRange(-240, 300);
    ring.value = 200;
    ring.presetValue = 220;
    ring.percentValue = 66;
    PaintWidget(state, ring, QSize(400, 400));
}

void BareRingHalf(QPainter &painter, double turn, int numbers, int step, int ticks)
{
    const double drop = painter.fontMetrics().height() / 2.0;
    painter.setPen(Qt::black);
    for (int i = 0; i <= numbers; ++i) {
        const double angle = qDegreesToRadians(-90 + turn * i * 154.0 / numbers);
        CentredText(painter, int(std::cos(angle) * 105), int(std::sin(angle) * 105) + drop,
                    QString::number(step * i));
    }
    painter.setPen(Qt::white);
    for (int i = 0; i * 154.0 / ticks <= 180; ++i) {
        const double angle = qDegreesToRadians(-90 + turn * i * 154.0 / ticks);
        painter.drawLine(QPoint(int(std::cos(angle) * 125), int(std::sin(angle) * 125)),
                         QPoint(int(std::cos(angle) * 160), int(std::sin(angle) * 160)));
    }
}

void BareRingFoot(QPainter &painter)
{
    painter.setPen(Qt::black);
    painter.setBrush(Qt::black);
    painter.drawRect(-40, 115, 80, 25);
    painter.drawRect(-2, 140, 4, 20);
    QFont font = painter.font();
    font.setPixelSize(18);
    painter.setFont(font);
    painter.drawText(-80, 160, QStringLiteral("Bremsen"));
    painter.drawText(10, 160, QStringLiteral("Zugkraft"));
    painter.setPen(Qt::white);
    painter.drawLine(20, 115, 20, 140);
    painter.drawText(22, 135, QStringLiteral("%"));
    painter.drawText(-20, 135, QStringLiteral("66"));
    font.setPixelSize(25);
    painter.setFont(font);
    painter.setPen(Qt::black);
    CentredText(painter, 0, 5, QStringLiteral("kN"));
}

void ForceRingFloor(benchmark::State &state)
{
    PaintBare(state, QSize(400, 400), [](QPainter &painter) {
        const QRectF disc(-160, -160, 320, 320);
        painter.translate(200, 200);
        painter.setPen(Qt::black);
        painter.setBrush(Qt::black);
        painter.drawEllipse(disc);
        QPainterPath sector(QPointF(0, 0));
        sector.arcTo(disc, 90, -154 * 2 / 3.0);
        sector.closeSubpath();
        painter.setPen(Qt::blue);
        painter.setBrush(Qt::blue);
        painter.drawPath(sector);
        painter.setPen(Qt::black);
        painter.setBrush(Qt::black);
        painter.rotate(113);
        painter.drawPolygon(QPolygonF({{0, -160}, {-10, -180}, {10, -180}}));
        painter.rotate(-113);
        painter.setPen(Qt::white);
        painter.setBrush(Qt::white);
        painter.drawEllipse(-125, -125, 250, 250);
        painter.drawPolygon(QPolygonF({{0, -20}, {-85, 160}, {85, 160}}));
        BareRingHalf(painter, 1, 6, 50, 12);
        BareRingHalf(painter, -1, 4, 60, 9);
        BareRingFoot(painter);
    });
}
} // namespace

BENCHMARK(SpeedometerPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(SpeedometerFloor)->Unit(benchmark::kMicrosecond);
#ifdef ZUGBLICK_HAVE_QWT
BENCHMARK(QwtDialPaint)->Unit(benchmark::kMicrosecond);
#endif
BENCHMARK(LzbBarPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(LzbBarFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(ForceRingPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(ForceRingFloor)->Unit(benchmark::kMicrosecond);
