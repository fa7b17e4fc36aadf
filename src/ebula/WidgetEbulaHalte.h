#pragma once

#include "TrainTimeTable.h"

#include <QWidget>

#include <memory>

namespace Ui {
class WidgetHalte;
}

/// The EBuLa's page with a timetable's stops: starts, ends and stations. Works on a copy.
class WidgetEbulaHalte : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetEbulaHalte(const TrainTimeTable &plan, QWidget *parent = nullptr);
    ~WidgetEbulaHalte() override;

    void Fill();
    /// Spreads the columns in their proportions over the table's width.
    void FitColumns();

private:
    const TrainTimeTable timeTable;
    std::unique_ptr<Ui::WidgetHalte> ui;
};
