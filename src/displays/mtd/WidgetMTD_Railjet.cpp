#include "WidgetMTD_Railjet.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "MtdIcon.h"

#include "ui_WidgetMTDRailjet.h"

#include <QPushButton>
#include <QResizeEvent>

#include <algorithm>

namespace {
constexpr int kOnTheRight = 1;
constexpr int kTriangle = 1;
} // namespace

WidgetMTD_Railjet::WidgetMTD_Railjet(KabdataSettings *storage, int style, QWidget *parent,
                                     Qt::WindowFlags flags)
    : WidgetMTD(storage, style, parent, flags), form(std::make_unique<Ui::WidgetMTDRailjet>())
{
    form->setupUi(PageWidget(PageMain));
    setWindowTitle(QStringLiteral("MTD Railjet"));
    if (storage != nullptr)
        restoreGeometry(storage->WindowGeometry(windowTitle()));
    dayColor = form->stackedWidget->palette().color(QPalette::Window);
    statusBackColor = form->label_status1->palette().color(form->label_status1->backgroundRole());
    PageWidget(PageMain)->setAutoFillBackground(true);
    PageWidget(PageMain)->setPalette(PagePalette(true));
    SetUpBars();
    ScaleFonts();
    TakeScreenText();
    DrawSystem(land);
    functionHint = form->label_status_funktionen->text();
    form->label_status_funktionen->clear();
    form->label_icon1->ShowText(QStringLiteral("Teilnehmer\n8"));
    ShowState(MtdRailjet::Basic);
    SetPage(storage != nullptr && storage->Startup() ? PageBlack : PageMain);
    ShowLand();
    ShowVoltage();
}

WidgetMTD_Railjet::~WidgetMTD_Railjet() = default;

void WidgetMTD_Railjet::SetUpBars()
{
    const auto setUp = [](ValueBar *bar, int min, int max, int minor, int major,
                          const QString &unit) {
        bar->minorStep = minor;
        bar->majorStep = major;
        bar->setUnitText(unit);
        bar->setRange(min, max);
        bar->setValue(0);
    };
    for (ValueBar *bar : MotorBars()) {
        bar->markerVisible = true;
        bar->markerSide = kOnTheRight;
        bar->markerShape = kTriangle;
        setUp(bar, 0, 100, 5, 10, QStringLiteral("kN"));
    }
    setUp(form->valueBarSpannung, 10, 30, 1, 5, QStringLiteral("kV"));
    setUp(form->valueBarPrimaerstrom, 0, 700, 50, 100, QStringLiteral("A"));
    setUp(form->valueBarHeizstrom, 0, 1000, 50, 250, QStringLiteral("A"));
}

void WidgetMTD_Railjet::ScaleFonts()
{
    const auto scale = [this](QWidget *widget) {
        QFont scaled = widget->font();
        ScaleFont(scaled);
        widget->setFont(scaled);
    };
    scale(PageWidget(PageMain));
    const auto icons = form->stackedWidget->findChildren<MtdIcon *>();
    for (MtdIcon *icon : icons) {
        if (icon->objectName().startsWith(QLatin1String("label_icon"))) {
            scale(icon);
            screenText.SetPointSize(icon, icon->font().pointSizeF());
        }
    }
}

void WidgetMTD_Railjet::OnButton(QAbstractButton *button)
{
    if (button == nullptr)
        return;
    const QString key = button->text();
    if (key == QLatin1String("kont")) {
        ToggleDayNight();
        return; // a pending request stays
    }
    const int next = MtdRailjet::NextState(pageState, key);
    if (next != MtdRailjet::NoState)
        ShowState(next);
    else if (pageState == MtdRailjet::SystemChange)
        OnSystemKey(key);
    else if (pageState == MtdRailjet::Functions)
        OnFunctionKey(key);
}

void WidgetMTD_Railjet::ShowState(int state)
{
    pageState = state;
    form->stackedWidget->setCurrentIndex(MtdRailjet::PageOf(state));
    if (state == MtdRailjet::Functions) {
        ShowFunctions(); // a request that still waits for its key stands as it was
        return;
    }
    SetKeyTexts(MtdRailjet::CaptionsOf(state));
    if (state == MtdRailjet::Basic)
        MarkVoltageRank(false);
    else if (state == MtdRailjet::SystemChange)
        ShowLand();
}

void WidgetMTD_Railjet::SetKeyTexts(const MtdRailjet::Captions &k)
{
    SetKeyTexts(k[0], k[1], k[2], k[3], k[4], k[5], k[6], k[7], k[8], k[9]);
}

/// On this screen the hand follows the captions, also those of keys that do nothing yet.
void WidgetMTD_Railjet::SetKeyTexts(const QString &k1, const QString &k2, const QString &k3,
                                    const QString &k4, const QString &k5, const QString &k6,
                                    const QString &k7, const QString &k8, const QString &k9,
                                    const QString &k0)
{
    form->keyStrip->SetCaptions({k1, k2, k3, k4, k5, k6, k7, k8, k9, k0});
    SetButtonCursors(!k1.isEmpty(), !k2.isEmpty(), !k3.isEmpty(), !k4.isEmpty(), !k5.isEmpty(),
                     !k6.isEmpty(), !k7.isEmpty(), !k8.isEmpty(), !k9.isEmpty(), !k0.isEmpty());
}

/// The keys of the frame keep their colour.
void WidgetMTD_Railjet::ToggleDayNight()
{
    QWidget *page = PageWidget(PageMain);
    if (!dayMode && page->palette().color(QPalette::Window) != nightColor)
        return;
    dayMode = !dayMode;
    const QPalette palette = PagePalette(dayMode);
    page->setAutoFillBackground(true);
    page->setPalette(palette);
    form->stackedWidget->setPalette(palette);
}

void WidgetMTD_Railjet::SetLabelColored(QLabel *label, QString text, QColor background,
                                        QColor foreground, int pointSize)
{
    if (text.isEmpty())
        background = PageColor();
    WidgetMTD::SetLabelColored(label, text, background, foreground, pointSize);
}

void WidgetMTD_Railjet::resizeEvent(QResizeEvent *event)
{
    WidgetMTD::resizeEvent(event);
    qCDebug(lcDisplays) << "Font point size: " << font().pointSize();
    qCDebug(lcDisplays) << "Display size: " << size()
                        << " ratio: " << static_cast<double>(width()) / std::max(1, height());
}

void WidgetMTD_Railjet::OnTimerHauptschalterFrei()
{
    ready.mainSwitchFree = true;
}

void WidgetMTD_Railjet::OnTimerStromabnehmerFrei()
{
    ready.pantographFree = true;
}

void WidgetMTD_Railjet::OnTimerTraktionFrei()
{
    ready.tractionFree = true;
}

void WidgetMTD_Railjet::OnTimerSimulationStartup()
{
    SetPage(PageMain);
}

std::array<ValueBar *, 4> WidgetMTD_Railjet::MotorBars() const
{
    return {form->valueBarFM1, form->valueBarFM2, form->valueBarFM3, form->valueBarFM4};
}
