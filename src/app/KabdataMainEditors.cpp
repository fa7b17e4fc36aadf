// The editors: unlike the displays, any number of them, and each may refuse to close.

#include "KabdataMain.h"

#include "KabdataSettings.h"
#include "WindowRoadMapEditor.h"
#include "WindowTrainScheduleEditor.h"

void KabdataMain::OnOpenWindowCreateRoadMap()
{
    TrackEditor(new WindowRoadMapEditor(settings.get(), &trainData));
}

void KabdataMain::OnOpenWindowCreateTrainSchedule()
{
    TrackEditor(new WindowTrainScheduleEditor(settings.get(), &trainData));
}

void KabdataMain::TrackEditor(QWidget *window)
{
    editors.removeAll(nullptr);
    editors.append(window);
    window->show();
}

bool KabdataMain::CloseEditors()
{
    const QPointer<KabdataMain> guard(this);
    const QVector<QPointer<QWidget>> open = editors;
    for (const QPointer<QWidget> &editor : open) {
        if (editor && !editor->close())
            return false;
        if (!guard)
            return false;
    }
    return true;
}
