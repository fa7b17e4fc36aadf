#include "EbulaGraphicsScene.h"

#include "EbulaPageStyle.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "WidgetEbulaFSD.h"
#include "WidgetEbulaHalte.h"
#include "WidgetLoadTimeTable.h"
#include "WorkFolders.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsRectItem>
#include <QToolButton>

#include <algorithm>

namespace {
constexpr int kSoftKeys = 10;
constexpr double kPageLayer = 1.0; ///< above rows that a tick draws later
constexpr double kMenuLayer = 2.0; ///< its labels show over a page that fills the scene

/// Labels of all ten soft keys from those that are not empty.
QStringList MenuOf(std::initializer_list<std::pair<int, const char *>> labels)
{
    QStringList texts;
    for (int key = 0; key < kSoftKeys; ++key)
        texts.append(QString());
    for (const auto &label : labels)
        texts[label.first - 1] = QString::fromLatin1(label.second);
    return texts;
}

QStringList TableMenu()
{
    return {QStringLiteral("Zug"), QStringLiteral("FSD")};
}
} // namespace

/// One press does one thing: the first rule whose key and label fit, with the labels as they
/// stood at the press.
struct EbulaGraphicsScene::KeyRule
{
    QString key;
    QString label; ///< the soft key's label, empty when it does not matter
    void (EbulaGraphicsScene::*action)();
};

const QList<EbulaGraphicsScene::KeyRule> &EbulaGraphicsScene::KeyRules()
{
    using S = EbulaGraphicsScene;
    // "8" is missing on purpose: "Filter" and "Plan" are labels without a function.
    static const QList<KeyRule> rules{
        {QStringLiteral("aus"), QString(), &S::SwitchOff},
        {QStringLiteral("1"), QStringLiteral("Zug"), &S::OpenLoadView},
        {QStringLiteral("2"), QStringLiteral("FSD"), &S::OpenFsd},
        {QStringLiteral("2"), QStringLiteral("Halte"), &S::OpenHalte},
        {QStringLiteral("C"), QString(), &S::CloseLoadView},
        {QStringLiteral("E"), QString(), &S::LoadPlan},
        {QStringLiteral("top"), QString(), &S::KeyUp},
        {QStringLiteral("bottom"), QString(), &S::KeyDown},
        {QStringLiteral("right"), QString(), &S::KeyRight},
        {QStringLiteral("left"), QString(), &S::KeyLeft},
        {QStringLiteral("0"), QString(), &S::LeavePage},
        {QStringLiteral("9"), QString(), &S::LoadSelected},
        {QStringLiteral("kont"), QString(), &S::ToggleDayMode},
    };
    return rules;
}

/// The label over a digit key; the keys stand in the order 1 to 9, 0.
QString EbulaGraphicsScene::LabelOf(const QString &key) const
{
    const int digit = key.toInt();
    return menuTexts.value(digit == 0 ? kSoftKeys - 1 : digit - 1);
}

void EbulaGraphicsScene::OnButtonMenuClicked(QString text)
{
    const QString label = LabelOf(text);
    for (const KeyRule &rule : KeyRules()) {
        if (rule.key == text && (rule.label.isEmpty() || rule.label == label)) {
            (this->*rule.action)();
            return;
        }
    }
}

void EbulaGraphicsScene::SwitchOff()
{
    tickTimer.stop();
    deleteLater();
}

void EbulaGraphicsScene::StopTracking()
{
    tickTimer.stop();
    // It would bring the tick back under an open page.
    pageTimer.stop();
}

void EbulaGraphicsScene::PlacePage(QWidget *widget, const QRect &at)
{
    widget->setFixedSize(at.size());
    QGraphicsProxyWidget *proxy = addWidget(widget);
    proxy->setPos(at.topLeft());
    proxy->setZValue(kPageLayer);
    StylePages();
}

void EbulaGraphicsScene::StylePages()
{
    const QString sheet = EbulaPageStyle(dayMode, smallFont);
    for (QWidget *each : {static_cast<QWidget *>(loadView), static_cast<QWidget *>(fsdPage),
                          static_cast<QWidget *>(haltePage)}) {
        if (each != nullptr)
            each->setStyleSheet(sheet);
    }
    if (loadView != nullptr)
        loadView->DimSearchHint();
}

void EbulaGraphicsScene::OpenLoadView()
{
    delete fsdPage;
    delete haltePage;
    StopTracking();
    if (loadView == nullptr) {
        const QString workFolder = settings != nullptr ? settings->WorkFolder() : DataLocation();
        loadView =
            new WidgetLoadTimeTable(settings, WorkFolders::TrainTimeTables(workFolder), nullptr);
        const int height = static_cast<int>(layout.height) - layout.menuHeight;
        PlacePage(loadView, QRect(0, 0, static_cast<int>(layout.width), height));
        loadView->SetFonts(bigFont, smallFont);
    }
    SetMenu(MenuOf({{8, "Filter"}, {9, "OK"}, {10, "C"}}));
    loadView->FillTable();
}

void EbulaGraphicsScene::OpenFsd()
{
    delete haltePage;
    if (fsdPage == nullptr) {
        StopTracking();
        fsdPage = new WidgetEbulaFSD(timeTable);
        fsdPage->setFont(smallFont);
        PlacePage(fsdPage,
                  QRect(0, tableRect.top(), static_cast<int>(layout.width), tableRect.height()));
    }
    SetMenu(MenuOf({{1, "Zug"}, {2, "Halte"}, {8, "Plan"}, {10, "G"}}));
    fsdPage->Fill();
}

void EbulaGraphicsScene::OpenHalte()
{
    delete fsdPage;
    if (haltePage == nullptr) {
        StopTracking();
        haltePage = new WidgetEbulaHalte(timeTable);
        haltePage->setFont(smallFont);
        PlacePage(haltePage,
                  QRect(0, tableRect.top(), static_cast<int>(layout.width), tableRect.height()));
    }
    SetMenu(MenuOf({{1, "Zug"}, {2, "FSD"}, {10, "G"}}));
    haltePage->Fill();
    haltePage->FitColumns();
}

void EbulaGraphicsScene::CloseLoadView()
{
    if (loadView == nullptr)
        return;
    // Without a plan the stored interval is still 0: the tick then runs whenever nothing else
    // does, until a plan sets its second.
    tickTimer.start();
    delete loadView;
    SetMenu(TableMenu());
}

void EbulaGraphicsScene::LeavePage()
{
    if (loadView != nullptr) {
        CloseLoadView();
        return;
    }
    if (fsdPage == nullptr && haltePage == nullptr)
        return;
    delete fsdPage;
    delete haltePage;
    SetMenu(TableMenu());
    tickTimer.start();
}

void EbulaGraphicsScene::LoadPlan()
{
    if (loadView == nullptr)
        return;
    TrainTimeTable plan;
    const bool loaded = loadView->GetTimtTable(plan);
    delete loadView;
    SetMenu(TableMenu());
    if (loaded) {
        TakePlan(plan);
        return;
    }
    qCDebug(lcEbula).noquote() << Q_FUNC_INFO << "Plan not loaded: ";
    tickTimer.start(kTickMs);
}

void EbulaGraphicsScene::LoadSelected()
{
    if (loadView == nullptr)
        return;
    loadView->TakeSelection();
    LoadPlan();
}

void EbulaGraphicsScene::ToggleDayMode()
{
    dayMode = !dayMode;
    Redraw();
}

void EbulaGraphicsScene::KeyUp()
{
    if (loadView != nullptr)
        loadView->SelectRowUp();
    else
        PageUp();
}

void EbulaGraphicsScene::KeyDown()
{
    if (loadView != nullptr)
        loadView->SelectRowDown();
    else
        PageDown();
}

void EbulaGraphicsScene::KeyRight()
{
    if (loadView == nullptr)
        RowUp();
}

void EbulaGraphicsScene::KeyLeft()
{
    if (loadView == nullptr)
        RowDown();
}

void EbulaGraphicsScene::SetMenu(const QStringList &texts)
{
    menuTexts = texts;
    DrawMenu();
}

void EbulaGraphicsScene::DrawMenu()
{
    // Labels look the same by day and by night.
    if (layout.width < 1.0 || (menuBand != nullptr && drawnMenu == menuTexts))
        return;
    drawnMenu = menuTexts;
    qDeleteAll(menuButtons);
    menuButtons.clear();
    delete menuBand;
    const double top = layout.height - layout.menuHeight;
    menuBand = addRect(0.0, top, layout.width, layout.menuHeight, QPen(Qt::gray), QBrush(Qt::gray));
    menuBand->setZValue(kMenuLayer);
    for (int i = 0; i < std::min(menuTexts.size(), kSoftKeys); ++i) {
        if (menuTexts.at(i).isEmpty())
            continue;
        auto *label = new QToolButton;
        label->setFont(smallFont);
        label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        label->setSizeIncrement(1, 1);
        label->setProperty("id", i);
        label->setText(menuTexts.at(i));
        label->setEnabled(false);
        // A raised one would leave a picture in the pixmap cache at every repaint.
        label->setAutoRaise(true);
        label->setStyleSheet(QStringLiteral("background-color:grey; color:black"));
        label->setFixedSize(static_cast<int>(layout.menuPitch - layout.width / 50.0),
                            layout.menuHeight);
        QGraphicsProxyWidget *proxy = addWidget(label);
        proxy->setPos(i * layout.menuPitch + layout.menuPitch / 9.0, top);
        proxy->setZValue(kMenuLayer);
        menuButtons.append(proxy);
    }
}
