#include "WidgetDisplayIndicator.h"

#include "KabdataSettings.h"
#include "LocoData.h"

#include "ui_WidgetIndicators.h"

namespace {
constexpr int kDefaultInterval = 500;

/// What the needles of one gauge show. A gauge moves only with both of its functions mapped: one
/// needle alone would pass its resting place off as a pressure.
struct GaugeRow
{
    Manometer *Ui::WidgetIndicators::*gauge;
    VControllerBase LocoData::*main;
    VControllerBase LocoData::*second;
};

constexpr GaugeRow kGauges[] = {
    {&Ui::WidgetIndicators::manoZylinderdruck, &LocoData::TrainBrakeCylinderBar,
     &LocoData::LocoBrakeCylinderBar},
    {&Ui::WidgetIndicators::manoHLL_HBL, &LocoData::HBL, &LocoData::HLL},
};
} // namespace

WidgetDisplayIndicator::WidgetDisplayIndicator(KabdataSettings *storage, LocoData *loco,
                                               QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), form(std::make_unique<Ui::WidgetIndicators>()), settings(storage),
      locoData(loco), updateTimer(this)
{
    form->setupUi(this);
    setWindowIcon(QIcon(QStringLiteral(":/icons/icon_pressure")));
    setAttribute(Qt::WA_DeleteOnClose);
    connect(&updateTimer, &QTimer::timeout, this, &WidgetDisplayIndicator::OnTimerUpdate);
    updateTimer.start(settings != nullptr ? settings->UpdateInterval() : kDefaultInterval);
}

WidgetDisplayIndicator::~WidgetDisplayIndicator() = default;

void WidgetDisplayIndicator::OnTimerUpdate()
{
    if (locoData == nullptr)
        return;
    for (const GaugeRow &row : kGauges) {
        const VControllerBase &main = locoData->*row.main;
        const VControllerBase &second = locoData->*row.second;
        if (main.id != -1 && second.id != -1)
            ((*form).*row.gauge)->setValues(main.value, second.value);
    }
}
