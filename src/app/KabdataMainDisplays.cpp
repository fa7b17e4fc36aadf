// The displays: which one opens, with what, and what its closing does.

#include "KabdataMain.h"

#include "EbulaGraphicsScene.h"
#include "KabdataSettings.h"
#include "WidgetDisplayIndicator.h"
#include "WidgetMFA_BR101.h"
#include "WidgetMFA_BR145.h"
#include "WidgetMFA_BR155.h"
#include "WidgetMFA_OEBB8090.h"
#include "WidgetMFA_Railjet.h"
#include "WidgetMFD.h"
#include "WidgetMainUsDisplay.h"
#include "ui_KabdataMain.h"

#include <algorithm>
#include <iterator>

const KabdataMain::ScreenRow KabdataMain::kScreens[] = {
    {Screen::MfaBr101, &KabdataMain::OpenMfa<WidgetMFA_BR101>},
    {Screen::MfaBr145, &KabdataMain::OpenMfa<WidgetMFA_BR145>},
    {Screen::MfaBr155, &KabdataMain::OpenMfa<WidgetMFA_BR155>},
    {Screen::MfaRailjet, &KabdataMain::OpenMfa<WidgetMFA_Railjet>},
    {Screen::MfaOebb8090, &KabdataMain::OpenMfa<WidgetMFA_OEBB8090>},
    {Screen::MainUs, &KabdataMain::OpenMainUs},
};

Qt::WindowFlags KabdataMain::DisplayFlags() const
{
    Qt::WindowFlags flags = Qt::CustomizeWindowHint;
    if (settings->Topmost())
        flags |= Qt::WindowStaysOnTopHint;
    return flags;
}

/// False when there is no window for that screen.
bool KabdataMain::OpenScreen(Screen screen)
{
    const auto *row =
        std::find_if(std::begin(kScreens), std::end(kScreens),
                     [screen](const ScreenRow &each) { return each.screen == screen; });
    if (row == std::end(kScreens))
        return false;
    (this->*row->open)();
    return true;
}

template <typename Display>
void KabdataMain::OpenMfa()
{
    auto *display = new Display(settings.get(), &trainData, nullptr, DisplayFlags());
    connect(display, &Display::sigWriteControllerValue, this, &KabdataMain::OnWriteControllerValue);
    connect(display, &Display::sigWriteTrainDataIntern, this, &KabdataMain::OnWriteTraindataIntern);
    connect(display, &QObject::destroyed, this, &KabdataMain::OnCloseMFA);
    display->show();
    display->SetLocoData(&locoData);
}

void KabdataMain::OpenMainUs()
{
    auto *display = new WidgetMainUsDisplay(settings.get(), &trainData, nullptr, false, nullptr,
                                            DisplayFlags());
    connect(display, &WidgetMainUsDisplay::sigWriteControllerValue, this,
            &KabdataMain::OnWriteControllerValue);
    connect(display, &QObject::destroyed, this, &KabdataMain::OnCloseMFA);
    display->show();
    display->SetLocoData(&locoData);
}

void KabdataMain::OnOpenMFA()
{
    if (!OpenScreen(MfaScreen(locoData.display, currentLoco)))
        return;
    ui->actionMFA->setEnabled(false);
    mfaOpen = true;
}

void KabdataMain::OnOpenMTD()
{
    if (!OpenScreen(MtdScreen(locoData.display)))
        return;
    ui->actionMTD->setEnabled(false);
    mtdOpen = true;
}

void KabdataMain::OnOpenEbuLa()
{
    auto *frame = new WidgetMFD(settings.get(), WidgetMFD::FrameMfd, nullptr, DisplayFlags());
    frame->setMinimumSize(400, 300);
    frame->setWindowIcon(QIcon(QStringLiteral(":/icons/icon_ebula")));
    frame->SetPage(WidgetMFD::PageGraphicsView);
    // The scene takes its size from the view, which has its own only once it is shown.
    frame->show();
    auto *scene = new EbulaGraphicsScene(settings.get(), frame, &trainData);
    frame->SetScene(scene);
    connect(frame, &WidgetMFD::sigButtonMenuClicked, scene,
            &EbulaGraphicsScene::OnButtonMenuClicked);
    connect(frame, &QObject::destroyed, this, &KabdataMain::OnCloseEbula);
    ui->actionEbuLa->setEnabled(false);
    ebulaOpen = true;
}

void KabdataMain::OnOpenDisplayPressure()
{
    auto *window = new WidgetDisplayIndicator(settings.get(), &locoData);
    ++pressureCount;
    pressureOpen = true;
    connect(window, &QObject::destroyed, this, [this] {
        --pressureCount;
        pressureOpen = pressureCount > 0;
    });
    window->show();
}

void KabdataMain::OnCloseEbula()
{
    ui->actionEbuLa->setEnabled(true);
    ebulaOpen = false;
}

void KabdataMain::OnCloseMFA()
{
    ui->actionMFA->setEnabled(true);
    mfaOpen = false;
}

void KabdataMain::OnCloseMTD()
{
    ui->actionMTD->setEnabled(true);
    mtdOpen = false;
}

void KabdataMain::OnOpenDlgOverviewControllerlist()
{
    AddJob(JobControllerListValues, QStringLiteral("Get ControllerlistValue"));
}

void KabdataMain::OnOpenDlgSettings() { }
void KabdataMain::OnOpenDlgLocoAssign() { }
void KabdataMain::OnOpenDlgTrainConfigurator() { }
void KabdataMain::OnOpenCabEditor() { }
