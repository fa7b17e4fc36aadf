#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

class KabdataSettings;
class LocoData;

namespace Ui {
class WidgetIndicators;
}

/// Two pressure gauges above each other, in bar, for any loco: brake cylinders on top, main
/// reservoir and brake pipe below. Reads the loco's records in place, which must outlive it, and
/// deletes itself on close. The settings are read at construction only.
class WidgetDisplayIndicator : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetDisplayIndicator(KabdataSettings *settings, LocoData *locoData,
                                    QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~WidgetDisplayIndicator() override;

public slots:
    void OnTimerUpdate();

private:
    std::unique_ptr<Ui::WidgetIndicators> form;
    KabdataSettings *settings;
    LocoData *locoData;
    QTimer updateTimer;
};
