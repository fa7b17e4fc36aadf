#pragma once

#include <Qt>

class EbulaGraphicsScene;
class KabdataSettings;
class WidgetMFD;
struct TrainData;

/// Opens the EBuLa: its frame, shown, with its scene on it and the keys connected. The frame
/// deletes itself on close, and the scene with it. Both pointers may be null and must outlive it.
WidgetMFD *OpenEbulaWindow(KabdataSettings *settings, TrainData *train, Qt::WindowFlags flags);

/// The scene of such a frame; null once it was switched off.
EbulaGraphicsScene *EbulaSceneOf(const WidgetMFD &frame);
