#pragma once

#include "LocoData.h"
#include "TrainData.h"
#include "WidgetMTD_BR145.h"
#include "WidgetMTD_Railjet.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QLabel>
#include <QStackedWidget>

/// A loco whose functions are set line by line, as its configuration file would; those that it had
/// are gone.
inline void ReadLoco(LocoData &loco, const QString &lines)
{
    QBuffer file;
    file.setData(lines.toUtf8());
    file.open(QIODevice::ReadOnly);
    loco.Read(file);
}

/// A loco under power with all that the touch screens show.
inline QString LocoLines()
{
    return QStringLiteral("Display=5\nConfigTyp=1\n"
                          "Hauptschalter=10:MainSwitch:1:0:1:0:0:0:0\n"
                          "Spannung=11:LineVoltage:15:0:20:0:0:0:0\n"
                          "Oberstrom=12:LineCurrent:0.6:0:1:0:-300:700:1\n"
                          "StromabnehmerStatus=9:PantographControl:1:0:1:0:0:0:0\n"
                          "Fuehrerstand=15:ActiveCab:1:0:2:0:0:0:0\n"
                          "Zugkraftvorwahl=44:EffortPreset:260:-150:300:0:0:0:0\n"
                          "Teilnehmer=73:UnitsInTrain:3:0:8:0:0:0:0\n"
                          "System_Land=16:SystemSelect:0:0:3:0:0:0:0\n"
                          "Zugsammelschiene=14:TrainHeating:0:0:1:0:0:0:0\n"
                          "Beschleunigungsmesser=43:TractiveEffort:188:-150:300:0:0:0:0\n"
                          "Batteriespannung=17:BatteryState:1:0:1:0:0:110:1\n"
                          "Speedometer=25:SpeedometerKPH:119.6:0:250:0:0:0:0\n"
                          "AFB_Active=6:AFB:1:0:1:0:0:0:0\n"
                          "SpeedometerVsoll=8:AFB_TargetSpeed:160.9:0:250:0:0:0:0\n"
                          "PZB_zwang=40:PZB_Emergency:0:0:1:0:0:0:0\n"
                          "Bremsart=23:BrakeMode:2:0:2:0:0:0:0\n"
                          "LocoBrakeCylinderBar=20:BrakeCylinder:0:0:10:0:0:0:0\n"
                          "Federspeicherbremse=22:HandBrake:0:0:1:0:0:0:0\n"
                          "Zugart=32:PZB_TrainType:0:1:3:0:0:0:0\n"
                          "PZB_wach=29:PZB_Acknowledge:0:0:1:0:0:0:0\n");
}

/// A touch screen over a loco and a train of its own.
template <typename Screen>
class MtdBench
{
public:
    explicit MtdBench(KabdataSettings *settings = nullptr) : screen(settings)
    {
        ReadLoco(loco, LocoLines());
        train.ReadReply(
            QStringLiteral("50.9:6.9:0:14:27:36:74.5:0:0:RJ 63:0:12873.4:9:169:300:200:420"));
        screen.setAttribute(Qt::WA_DeleteOnClose, false);
        screen.setMinimumSize(800, 500);
        screen.SetTrainData(&train);
        screen.SetLocoData(&loco);
    }

    /// Presses keys of the frame by their texts, with blanks between them.
    void Keys(const QString &keys)
    {
        for (const QString &key : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            screen.OnMenuButtonClicked(screen.Key(key));
    }
    /// Update passes; the first one of a screen only starts the clock of its energy counters.
    void Pass(int times = 2)
    {
        for (int pass = 0; pass < times; ++pass)
            screen.OnUpdateSecondTimer();
    }
    /// Back to the basic page, from wherever.
    void GoHome()
    {
        Keys("C");
        if (screen.PageState() != 0)
            Keys("0");
    }

    QLabel *Label(const QString &name) const { return screen.template findChild<QLabel *>(name); }
    QString Text(const QString &name) const { return Label(name)->text(); }
    QColor Background(const QString &name) const
    {
        return Label(name)->palette().color(Label(name)->backgroundRole());
    }
    QString Captions() const
    {
        QStringList captions;
        for (int place = 1; place <= 10; ++place)
            captions << Text(QStringLiteral("label_button%1").arg(place % 10)).replace('\n', '/');
        return captions.join(QLatin1Char('|'));
    }
    int StackPage() const
    {
        return screen.template findChild<QStackedWidget *>("stackedWidget")->currentIndex();
    }

    LocoData loco;
    TrainData train;
    Screen screen;
};

using Br145Bench = MtdBench<WidgetMTD_BR145>;
using RailjetBench = MtdBench<WidgetMTD_Railjet>;

/// The keys that lead from the basic page to each page, in the order of the stack.
inline QStringList WaysOf(const WidgetMTD_BR145 &)
{
    return {"", "7", "2", "4", "4 1", "4 1 i", "4 1 bottom i"};
}
inline QStringList WaysOf(const WidgetMTD_Railjet &)
{
    return {"", "8", "8 3", "8 6", "0", "2", "3"};
}
