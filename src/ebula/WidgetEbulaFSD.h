#pragma once

#include "TrainTimeTable.h"

#include <QWidget>

#include <memory>

namespace Ui {
class WidgetFSD;
}

/// The EBuLa's page with a timetable's head data. Works on a copy.
class WidgetEbulaFSD : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetEbulaFSD(const TrainTimeTable &plan, QWidget *parent = nullptr);
    ~WidgetEbulaFSD() override;

    void Fill();

private:
    const TrainTimeTable timeTable;
    std::unique_ptr<Ui::WidgetFSD> ui;
};
