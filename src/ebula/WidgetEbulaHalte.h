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
    /// Widens or, on a small page, narrows the columns to what the widget's font needs, and gives
    /// the names all the rest.
    void FitColumns();

private:
    const TrainTimeTable timeTable;
    std::unique_ptr<Ui::WidgetHalte> ui;
};
