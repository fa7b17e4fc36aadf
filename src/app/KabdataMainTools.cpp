// The tools that open from the main window and know nothing of the train.

#include "KabdataMain.h"

#include "MainCabEditor.h"

void KabdataMain::OnOpenCabEditor()
{
    auto *editor = new MainCabEditor;
    TrackEditor(editor);
    editor->show();
}
