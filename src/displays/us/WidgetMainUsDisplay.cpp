#include "WidgetMainUsDisplay.h"

#include "KabdataSettings.h"
#include "LocoData.h"
#include "Numbers.h"
#include "TrainData.h"
#include "WidgetES44AC.h"
#include "WindowDrag.h"

#include "ui_WidgetMainUsDisplay.h"

namespace {
constexpr int kUpdateInterval = 200;
constexpr QSize kSmallest(800, 520);
constexpr QSize kFirstSize(1000, 650);

/// Which setter of the screen a function feeds.
struct SetterRow
{
    VControllerBase LocoData::*record;
    void (*push)(WidgetMainUsBase &screen, const VControllerBase &record);
};

template <void (WidgetMainUsBase::*setter)(double)>
void Push(WidgetMainUsBase &screen, const VControllerBase &record)
{
    (screen.*setter)(record.value);
}

void PushThrottle(WidgetMainUsBase &screen, const VControllerBase &record)
{
    screen.SetThrottle(record.value, record.max);
}

void PushReverser(WidgetMainUsBase &screen, const VControllerBase &record)
{
    screen.SetReverser(TruncToInt(record.value));
}

/// In the order of the calls.
constexpr SetterRow kSetters[] = {
    {&LocoData::LocoBrakeCylinderBar, Push<&WidgetMainUsBase::SetBrakeCylinder>},
    {&LocoData::HBL, Push<&WidgetMainUsBase::SetMainReservoir>},
    {&LocoData::HLL, Push<&WidgetMainUsBase::SetBrakePipe>},
    {&LocoData::TrainBrakeCylinderBar, Push<&WidgetMainUsBase::SetBrakeEqualizing>},
    {&LocoData::Speedometer, Push<&WidgetMainUsBase::SetSpeed>},
    {&LocoData::Zugkraftvorwahl, PushThrottle},
    {&LocoData::Reverser, PushReverser},
    {&LocoData::Beschleunigungsmesser, Push<&WidgetMainUsBase::SetEffort>},
};
} // namespace

WidgetMainUsDisplay::WidgetMainUsDisplay(KabdataSettings *storage, TrainData *train, LocoData *loco,
                                         bool framed, QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), withFrame(framed), locoData(loco), trainData(train),
      settings(storage), updateTimer(this)
{
    if (withFrame) {
        form = std::make_unique<Ui::WidgetMainUsDisplay>();
        form->setupUi(this);
    } else {
        QPalette colors = palette();
        colors.setColor(QPalette::Window, Qt::black);
        colors.setColor(QPalette::WindowText, Qt::white);
        setPalette(colors);
        setMinimumSize(kSmallest);
        resize(kFirstSize);
    }
    setWindowTitle(QStringLiteral("ES44AC"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/icon_us")));
    setAttribute(Qt::WA_DeleteOnClose);
    new WindowDrag(this);
    screen = new WidgetES44AC(settings, trainData, ScreenArea());
    screen->resize(ScreenArea()->size());
    if (settings != nullptr)
        restoreGeometry(settings->WindowGeometry(windowTitle()));
    connect(&updateTimer, &QTimer::timeout, this, &WidgetMainUsDisplay::OnUpdateTimer);
    updateTimer.start(kUpdateInterval);
}

WidgetMainUsDisplay::~WidgetMainUsDisplay() = default;

QWidget *WidgetMainUsDisplay::ScreenArea()
{
    return form != nullptr ? form->widget_content : this;
}

void WidgetMainUsDisplay::OnUpdateTimer()
{
    if (locoData == nullptr)
        return;
    if (trainData != nullptr)
        screen->SetGrade(trainData->simValue404);
    for (const SetterRow &row : kSetters) {
        const VControllerBase &record = locoData->*row.record;
        if (record.id != -1)
            row.push(*screen, record);
    }
    screen->OnUpdate();
}

void WidgetMainUsDisplay::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (screen != nullptr)
        screen->resize(ScreenArea()->size());
}

void WidgetMainUsDisplay::closeEvent(QCloseEvent *event)
{
    updateTimer.stop();
    if (settings != nullptr)
        settings->SetWindowGeometry(windowTitle(), saveGeometry());
    QWidget::closeEvent(event);
}
