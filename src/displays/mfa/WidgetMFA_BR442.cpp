#include "WidgetMFA_BR442.h"

#include "Br442Messages.h"
#include "ClickedLabelRailjet.h"
#include "KabdataSettings.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "ScreenArt.h"
#include "Speedometer.h"
#include "ZugkraftDisplay.h"
#include "ui_WidgetMFA_BR442.h"

#include <QAbstractButton>

namespace {
constexpr int kForceRange = 300;
const QColor kKeyColor(100, 100, 100);

std::unique_ptr<Ui::WidgetMFA_BR442> MakeForm(QWidget *page)
{
    auto form = std::make_unique<Ui::WidgetMFA_BR442>();
    form->setupUi(page);
    ShowScreenArt(*page);
    return form;
}

/// The colours of the screen by day and by night.
struct Shade
{
    QColor window;
    QColor text;
    QColor light;
    QColor keys;
};
const Shade kDay{Qt::white, Qt::black, QColor(50, 50, 50), kKeyColor};
const Shade kNight{Qt::black, Qt::white, QColor(200, 200, 200), Qt::white};
} // namespace

WidgetMFA_BR442::WidgetMFA_BR442(KabdataSettings *storage, int style, QWidget *parent,
                                 Qt::WindowFlags flags)
    : WidgetMTD(storage, style, parent, flags), ui(MakeForm(PageWidget(PageMain))),
      indication(BindTouchPanel(*ui))
{
    setWindowTitle(PageWidget(PageMain)->windowTitle());
    if (storage != nullptr)
        restoreGeometry(storage->WindowGeometry(windowTitle()));
    // With the start-up sequence on the screen stays dark: nothing ever switches it on.
    SetPage(storage != nullptr && storage->Startup() ? PageBlack : PageMain);
    ui->widget_zugkraft->setRange(-kForceRange, kForceRange);
    SetButtonColor(kKeyColor);
    RecolourEmptyFields();
}

WidgetMFA_BR442::~WidgetMFA_BR442() = default;

void WidgetMFA_BR442::OnButton(QAbstractButton *button)
{
    if (button != nullptr && button->text() == QLatin1String("kont"))
        ToggleDayNight();
}

void WidgetMFA_BR442::ToggleDayNight()
{
    dayMode = !dayMode;
    const Shade &shade = dayMode ? kDay : kNight;
    QWidget *page = ui->stackedWidget_main->widget(0);
    QPalette palette = page->palette();
    palette.setColor(QPalette::Window, shade.window);
    palette.setColor(QPalette::WindowText, shade.text);
    palette.setColor(QPalette::Text, shade.text);
    palette.setColor(QPalette::Light, shade.light);
    page->setAutoFillBackground(true);
    page->setPalette(palette);
    ui->stackedWidget_right->setPalette(palette);
    SetButtonColor(shade.keys);
    ui->widget_speedometer->setColors(shade.window, shade.text);
    labelBackground = shade.window;
    RecolourEmptyFields();
}

/// Fields that no record feeds would keep the other shade.
void WidgetMFA_BR442::RecolourEmptyFields()
{
    const TouchPanel panel = BindTouchPanel(*ui);
    for (LabelRailjet *field :
         {panel.lm1, panel.lm2, panel.lm3, panel.lm4, panel.lm5, panel.lm6, panel.lm8, panel.lm13,
          panel.tuer, panel.sifa, panel.zugkraftText, ui->label_msg1, ui->label_msg2}) {
        if (!field->text().isEmpty())
            continue;
        QPalette palette = field->palette();
        palette.setColor(QPalette::Window, labelBackground);
        field->setPalette(palette);
    }
    ShadeLightPictures();
}

/// The picture of the brake and the scale of the LZB are light and need a dark ground by day, too.
void WidgetMFA_BR442::ShadeLightPictures()
{
    const std::pair<QWidget *, bool> fields[] = {
        {ui->label_bremse, !ui->label_bremse->pixmap(Qt::ReturnByValue).isNull()},
        {ui->label_lzb_display, ui->label_lzb_display->active},
    };
    for (const auto &[field, shown] : fields) {
        QPalette palette = field->palette();
        palette.setColor(QPalette::Window, shown ? QColor(Qt::black) : labelBackground);
        if (palette != field->palette())
            field->setPalette(palette);
    }
}

void WidgetMFA_BR442::OnUpdateSecondTimer()
{
    if (trainData == nullptr)
        return;
    ui->label_clock->setTextIfChanged(SimulatorTime().toString(QStringLiteral("hh:mm:ss")));
    if (locoData == nullptr)
        return;
    indication.indicators.SetIndicator(ui->label_msg1, Br442::SupervisionMessage(*locoData));
    indication.indicators.SetIndicator(ui->label_msg2, Br442::StateMessage(*locoData));
    // Last: a needle lets events run, and the window may be gone afterwards.
    if (indication.ShowRecords(*locoData, Rules(), *this, labelBackground))
        ShadeLightPictures();
}

const QVector<RecordRule<WidgetMFA_BR442>> &WidgetMFA_BR442::Rules()
{
    static const QVector<RecordRule<WidgetMFA_BR442>> rules{
        {&LocoData::Speedometer, &WidgetMFA_BR442::FollowSpeed},
        {&LocoData::Beschleunigungsmesser, &WidgetMFA_BR442::FollowForce},
    };
    return rules;
}

void WidgetMFA_BR442::FollowSpeed(VControllerBase &record)
{
    indication.ShowSpeed(EffectiveRange(record).max, Round(static_cast<double>(record.value)));
}

void WidgetMFA_BR442::FollowForce(VControllerBase &record)
{
    indication.TakeForceRange(EffectiveRange(record));
    indication.ShowForce(record);
}
