#include "WidgetMTD.h"

#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "MtdColors.h"
#include "TrainData.h"

#include <QAbstractButton>
#include <QGraphicsScene>
#include <QLabel>
#include <QResizeEvent>
#include <QTimer>

#include <algorithm>

namespace {
constexpr int kDefaultInterval = 500;
/// The main page in a frame of design size.
constexpr QSize kDesignedPage(650, 388);

/// One colour role of a page by day and by night.
struct RoleColors
{
    QPalette::ColorRole role;
    QRgb day;
    QRgb night;
};

// Dark is the ink of scales and clocks, Mid that of hairlines; the others shade the sunken bars.
constexpr RoleColors kRoleColors[] = {
    {QPalette::WindowText, 0xff000000, 0xffffffff},    {QPalette::Text, 0xff000000, 0xffffffff},
    {QPalette::ButtonText, 0xff000000, 0xffffffff},    {QPalette::Base, 0xffdcdcdc, 0xff3a3a3a},
    {QPalette::AlternateBase, 0xffcfcfcf, 0xff464646}, {QPalette::Dark, 0xff000000, 0xffe6e6e6},
    {QPalette::Mid, 0xff707070, 0xff7a7a7a},           {QPalette::Light, 0xffe8e8e8, 0xff9a9a9a},
    {QPalette::Midlight, 0xffd8d8d8, 0xff6a6a6a},      {QPalette::Shadow, 0xff808080, 0xff101010},
};
} // namespace

WidgetMTD::WidgetMTD(KabdataSettings *storage, int style, QWidget *parent, Qt::WindowFlags flags)
    : WidgetMFD(storage, style, parent, flags), updateTimer(new QTimer(this)),
      nightColor(MtdColors::Night)
{
    SetScene(new QGraphicsScene(this));
    connect(updateTimer, &QTimer::timeout, this, &WidgetMTD::OnUpdateSecondTimer);
    updateTimer->start(storage != nullptr ? storage->UpdateInterval() : kDefaultInterval);
}

void WidgetMTD::OnButton(QAbstractButton *) { }

void WidgetMTD::OnUpdateSecondTimer() { }

void WidgetMTD::SetButtonCursors(bool k1, bool k2, bool k3, bool k4, bool k5, bool k6, bool k7,
                                 bool k8, bool k9, bool k0)
{
    const bool live[] = {k1, k2, k3, k4, k5, k6, k7, k8, k9, k0};
    for (int place = 0; place < 10; ++place) {
        QAbstractButton *key = Key(QString::number((place + 1) % 10));
        key->setCursor(live[place] ? Qt::PointingHandCursor : Qt::ArrowCursor);
    }
}

void WidgetMTD::SetLabelStyle(const LabelStyle &style)
{
    SetLabelColored(style.label, style.text, style.background, style.foreground, style.pointSize);
}

void WidgetMTD::SetLabelColored(QLabel *label, QString text, QColor background, QColor foreground,
                                int pointSize)
{
    if (label == nullptr)
        return;
    screenText.SetPointSize(label, ScaledPointSize(pointSize));
    QPalette palette = label->palette();
    palette.setColor(label->backgroundRole(), background);
    palette.setColor(label->foregroundRole(), foreground);
    if (palette != label->palette())
        label->setPalette(palette);
    if (text != label->text())
        label->setText(text);
    label->setAutoFillBackground(true);
}

QPalette WidgetMTD::PagePalette(bool day) const
{
    QPalette palette = PageWidget(PageMain)->palette();
    palette.setColor(QPalette::Window, day ? dayColor : nightColor);
    palette.setColor(QPalette::Button, day ? dayColor : nightColor);
    for (const RoleColors &each : kRoleColors)
        palette.setColor(each.role, QColor(day ? each.day : each.night));
    return palette;
}

QDateTime WidgetMTD::SimulatorTime() const
{
    return {QDate::currentDate(), QTime(trainData->hour, trainData->minute, trainData->second)};
}

void WidgetMTD::TakeScreenText()
{
    screenText.Take(PageWidget(PageMain));
    PageWidget(PageMain)->parentWidget()->installEventFilter(this);
    GrowText();
}

/// The page itself gets its size only when it is turned to, so the stack of pages is asked.
void WidgetMTD::GrowText()
{
    const QSizeF size = PageWidget(PageMain)->parentWidget()->size();
    screenText.Grow(
        std::min(size.width() / kDesignedPage.width(), size.height() / kDesignedPage.height()));
}

void WidgetMTD::resizeEvent(QResizeEvent *event)
{
    FitView();
    WidgetMFD::resizeEvent(event);
}

bool WidgetMTD::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == PageWidget(PageMain)->parentWidget())
        GrowText();
    return WidgetMFD::eventFilter(watched, event);
}

void WidgetMTD::closeEvent(QCloseEvent *event)
{
    SaveGeometryToSettings();
    updateTimer->stop();
    WidgetMFD::closeEvent(event);
}
