#pragma once

#include "PlanEditorWindow.h"

#include <memory>

class QTableWidgetItem;

namespace Ui {
class MainWindow_RoadmapEditor;
}

/// The editor of route plans. A driver records a line with it: each "Neuer Eintrag" takes the
/// train's position into a new row, with the distance mark carried on from the rows before.
class WindowRoadMapEditor : public PlanEditorWindow
{
    Q_OBJECT

public:
    /// `train` may be null; settings and train must outlive the window.
    explicit WindowRoadMapEditor(KabdataSettings *storage, TrainData *train,
                                 QWidget *parent = nullptr,
                                 PlanEditorOutside outsideWorld = PlanEditorOutside());
    ~WindowRoadMapEditor() override;

    const RoadMap &Plan() const { return roadMap; }

public slots:
    void OnImportOSMungefiltert();
    void OnImportOSMgefiltert();
    void OnImportTSPackaged();
    void OnTimerUpdateTrainData();
    void OnItemChanged(QTableWidgetItem *item);
    void OnExportRoadMap();

protected:
    bool ReadPlan(const QString &path) override;
    bool WritePlan(const QString &path) override;
    QString PathToSave() const override;
    QString ProposedName() const override;
    PlanRow NewRow(double mark) const override;
    bool PrepareClose() override;

private:
    void SetUpImports();

    std::unique_ptr<Ui::MainWindow_RoadmapEditor> ui;
    RoadMap roadMap;
};
