#include "WidgetMTD_BR145.h"

#include "Br145Pages.h"
#include "Br145StatusTexts.h"
#include "KabdataSettings.h"
#include "MtdColors.h"

#include "ui_WidgetDisplay_BR145.h"

namespace {
const QColor kKeysByDay(100, 100, 100);
constexpr int kOnTheRight = 1;
constexpr int kTriangle = 1;
} // namespace

WidgetMTD_BR145::WidgetMTD_BR145(KabdataSettings *storage, int style, QWidget *parent,
                                 Qt::WindowFlags flags)
    : WidgetMTD(storage, style, parent, flags), form(std::make_unique<Ui::WidgetDisplay_BR145>()),
      statusTexts(Br145::StatusTexts())
{
    form->setupUi(PageWidget(PageMain));
    setWindowTitle(QStringLiteral("MTD BR145"));
    if (storage != nullptr)
        restoreGeometry(storage->WindowGeometry(windowTitle()));
    dayColor = MtdColors::Neutral;
    PageWidget(PageMain)->setAutoFillBackground(true);
    PageWidget(PageMain)->setPalette(PagePalette(true));
    SetUpBars();
    SetUpLabels();
    TakeScreenText();
    ShowState(Br145::Basic);
    if (storage != nullptr && storage->Startup())
        SetPage(PageBlack); // a flash, as the unit is switched on
    SetPage(PageMain);
    SetButtonColor(kKeysByDay);
}

WidgetMTD_BR145::~WidgetMTD_BR145() = default;

void WidgetMTD_BR145::SetUpBars()
{
    const auto setUp = [](ValueBar *bar, int min, int max, int minor, int major, int value,
                          const QString &unit) {
        bar->minorStep = minor;
        bar->majorStep = major;
        bar->setUnitText(unit);
        bar->setRange(min, max);
        bar->setValue(value);
    };
    setUp(form->valueBarOberleitungStrom, 0, 600, 50, 100, 200, QStringLiteral("A"));
    setUp(form->valueBarOberleitungspannung, 10, 20, 1, 5, 15, QStringLiteral("kV"));
    for (ValueBar *bar : MotorBars()) {
        bar->markerVisible = true;
        bar->markerSide = kOnTheRight;
        bar->markerShape = kTriangle;
        setUp(bar, 0, 80, 5, 10, 0, QStringLiteral("kN"));
    }
}

void WidgetMTD_BR145::SetUpLabels()
{
    SetStateLabel(form->label_fuehrerstand1, QStringLiteral("ja"), true, StateInField);
    SetStateLabel(form->label_fuehrerstand2, QStringLiteral("nein"), false, StateInField);
    SetStateLabel(form->label_Zugsammelschiene, QStringLiteral("Ein"), true, StateInField);
    SetStateLabel(form->label_ASG1_Steuerung, QStringLiteral("Bereit"), true, StateInField);
    SetStateLabel(form->label_ASG2_Steuerung, QStringLiteral("Bereit"), true, StateInField);
    for (int field = 0; field < Zde::FieldCount; ++field)
        MarkField(field, false);
}

void WidgetMTD_BR145::OnButton(QAbstractButton *button)
{
    if (button == nullptr)
        return;
    const QString key = button->text();
    if (key == QLatin1String("kont")) {
        ToggleDayNight();
        return;
    }
    const int next = Br145::NextState(pageState, key);
    if (next == Br145::Entry && pageState == Br145::TrainData)
        EnterZde();
    else if (next != Br145::NoState)
        ShowState(next);
    else if (pageState == Br145::Entry)
        OnZdeKey(key);
}

void WidgetMTD_BR145::ShowState(int state)
{
    pageState = state;
    form->stackedWidget->setCurrentIndex(state);
    const Br145::Captions &k = Br145::CaptionsOf(state);
    SetKeyTexts(k[0], k[1], k[2], k[3], k[4], k[5], k[6], k[7], k[8], k[9]);
    const Br145::Hands &hand = Br145::HandsOf(state);
    SetButtonCursors(hand[0], hand[1], hand[2], hand[3], hand[4], hand[5], hand[6], hand[7],
                     hand[8], hand[9]);
}

void WidgetMTD_BR145::SetKeyTexts(const QString &k1, const QString &k2, const QString &k3,
                                  const QString &k4, const QString &k5, const QString &k6,
                                  const QString &k7, const QString &k8, const QString &k9,
                                  const QString &k0)
{
    form->keyStrip->SetCaptions({k1, k2, k3, k4, k5, k6, k7, k8, k9, k0});
}

void WidgetMTD_BR145::SetStateLabel(QLabel *label, const QString &text, bool on, StateStyle style)
{
    ::SetStateLabel(label, text, on, style, dayMode ? dayColor : nightColor);
}

void WidgetMTD_BR145::ToggleDayNight()
{
    dayMode = !dayMode;
    SetButtonColor(dayMode ? kKeysByDay : QColor(Qt::white));
    PageWidget(PageMain)->setPalette(PagePalette(dayMode));
}

std::array<ValueBar *, 4> WidgetMTD_BR145::MotorBars() const
{
    return {form->valueBarFM1, form->valueBarFM2, form->valueBarFM3, form->valueBarFM4};
}
