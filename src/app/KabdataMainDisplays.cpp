// The displays: which one opens, with what, and what its closing does.

#include "KabdataMain.h"

#include "KabdataSettings.h"
#include "WidgetDisplayIndicator.h"
#include "ui_KabdataMain.h"

Qt::WindowFlags KabdataMain::DisplayFlags() const
{
    Qt::WindowFlags flags = Qt::CustomizeWindowHint;
    if (settings->Topmost())
        flags |= Qt::WindowStaysOnTopHint;
    return flags;
}

QWidget *KabdataMain::CreateScreen(Screen screen)
{
    Q_UNUSED(screen)
    return nullptr;
}

void KabdataMain::OnOpenMFA()
{
    CreateScreen(MfaScreen(locoData.display, currentLoco));
}

void KabdataMain::OnOpenMTD()
{
    CreateScreen(MtdScreen(locoData.display));
}

void KabdataMain::OnOpenEbuLa() { }

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
void KabdataMain::OnOpenDlgCheckNewFiles() { }
void KabdataMain::OnOpenDlgTrainConfigurator() { }
void KabdataMain::OnOpenCabEditor() { }
void KabdataMain::OnOpenWindowCreateRoadMap() { }
void KabdataMain::OnOpenWindowCreateTrainSchedule() { }
