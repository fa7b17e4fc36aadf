#pragma once

#include "PlanEditorWindow.h"

#include <memory>

class QComboBox;
class QTableWidgetItem;
class QTimeEdit;

namespace Ui {
class MainWindow_TrainScheduleEditor;
}

/// The editor of timetables. It takes a route plan as template, or records rows as the editor of
/// route plans does, and lays a train with its times and stops over them.
class WindowTrainScheduleEditor : public PlanEditorWindow
{
    Q_OBJECT

public:
    /// `train` may be null; settings and train must outlive the window.
    explicit WindowTrainScheduleEditor(KabdataSettings *storage, TrainData *train,
                                       QWidget *parent = nullptr,
                                       PlanEditorOutside outsideWorld = PlanEditorOutside());
    ~WindowTrainScheduleEditor() override;

    const TrainTimeTable &Plan() const { return timeTable; }

public slots:
    void OnOpenRoadmap();
    void OnTimeEditContextMenuEvent(QPoint pos);
    void OnComboBoxTypeChanged(int index);
    void OnTableItemChanged(QTableWidgetItem *item);
    void OnTimer();
    void OnCellChanged(int row, int column);
    void OnExportToServer();

protected:
    bool ReadPlan(const QString &path) override;
    bool WritePlan(const QString &path) override;
    QString ProposedName() const override;
    PlanRow NewRow(double mark) const override;
    bool PrepareClose() override;

private:
    void MarkRowsNearTrain();
    void MarkPosition(int row, const QColor &colour);
    void ShowTrain();
    void TakeTrain();

    std::unique_ptr<Ui::MainWindow_TrainScheduleEditor> ui;
    TrainTimeTable timeTable;
    const QColor colourFar;
    const QColor colourNear;
};
