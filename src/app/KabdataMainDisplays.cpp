// The displays: which one opens, with what, and what its closing does.

#include "KabdataMain.h"

#include "EbulaWindow.h"
#include "KabdataSettings.h"
#include "WidgetDisplayIndicator.h"
#include "WidgetMFA_BR101.h"
#include "WidgetMFA_BR145.h"
#include "WidgetMFA_BR155.h"
#include "WidgetMFA_BR442.h"
#include "WidgetMFA_OEBB8090.h"
#include "WidgetMFA_Railjet.h"
#include "WidgetMFD.h"
#include "WidgetMTD_BR145.h"
#include "WidgetMTD_Railjet.h"
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
    {Screen::MfaBr442, &KabdataMain::OpenMfaBr442},
    {Screen::MainUs, &KabdataMain::OpenMainUs},
    {Screen::MtdRailjet, &KabdataMain::OpenMtd<WidgetMTD_Railjet>},
    {Screen::MtdBr145, &KabdataMain::OpenMtd<WidgetMTD_BR145>},
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

/// A display in the touch frame, before it is shown.
template <typename Display>
Display *KabdataMain::CreateTouchDisplay()
{
    auto *display = new Display(settings.get(), WidgetMFD::FrameSiemens, nullptr, DisplayFlags());
    display->setMinimumSize(800, 500);
    display->SetTrainData(&trainData);
    connect(display, &Display::sigWriteControllerValue, this, &KabdataMain::OnWriteControllerValue);
    return display;
}

template <typename Display>
void KabdataMain::OpenMtd()
{
    auto *display = CreateTouchDisplay<Display>();
    display->setWindowIcon(QIcon(QStringLiteral(":/icons/icon_mtd")));
    connect(display, &QObject::destroyed, this, &KabdataMain::OnCloseMTD);
    display->show();
    display->SetLocoData(&locoData);
}

/// The one MFA that stands in the touch frame.
void KabdataMain::OpenMfaBr442()
{
    auto *display = CreateTouchDisplay<WidgetMFA_BR442>();
    connect(display, &WidgetMFA_BR442::sigWriteTrainDataIntern, this,
            &KabdataMain::OnWriteTraindataIntern);
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
    ++mfaCount;
    mfaOpen = true;
}

void KabdataMain::OnOpenMTD()
{
    if (!OpenScreen(MtdScreen(locoData.display)))
        return;
    ui->actionMTD->setEnabled(false);
    ++mtdCount;
    mtdOpen = true;
}

void KabdataMain::OnOpenEbuLa()
{
    WidgetMFD *frame = OpenEbulaWindow(settings.get(), &trainData, DisplayFlags());
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
    mfaCount = qMax(0, mfaCount - 1);
    mfaOpen = mfaCount > 0;
}

void KabdataMain::OnCloseMTD()
{
    ui->actionMTD->setEnabled(true);
    mtdCount = qMax(0, mtdCount - 1);
    mtdOpen = mtdCount > 0;
}
