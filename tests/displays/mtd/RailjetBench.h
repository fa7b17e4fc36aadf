#pragma once

#include "MtdBench.h"
#include "WidgetMTD_Railjet.h"

#include <QStackedWidget>

/// The lines of a loco of this family under power; a test adds or replaces lines behind them.
inline QString RailjetLines()
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
                          "Federspeicherbremse=22:HandBrake:0:0:1:0:0:0:0\n");
}

/// The screen over a loco and a train of its own.
class RailjetBench
{
public:
    explicit RailjetBench(KabdataSettings *settings = nullptr) : screen(settings)
    {
        ReadLoco(loco, RailjetLines());
        train.ReadReply(
            QStringLiteral("50.9:6.9:0:14:27:36:74.5:0:0:RJ 63:0:12873.4:9:169:300:200:420"));
        screen.setAttribute(Qt::WA_DeleteOnClose, false);
        screen.setMinimumSize(800, 500);
        screen.SetTrainData(&train);
        screen.SetLocoData(&loco);
    }

    int StackPage() const
    {
        return screen.findChild<QStackedWidget *>(QStringLiteral("stackedWidget"))->currentIndex();
    }

    LocoData loco;
    TrainData train;
    WidgetMTD_Railjet screen;
};

/// The keys that lead from the basic page to a state.
inline QStringList RailjetKeysTo(int state)
{
    static const QHash<int, QStringList> ways = {
        {MtdRailjet::Workshop, {QStringLiteral("2")}},
        {MtdRailjet::Primary, {QStringLiteral("3")}},
        {MtdRailjet::Input, {QStringLiteral("8")}},
        {MtdRailjet::DateTime, {QStringLiteral("8"), QStringLiteral("3")}},
        {MtdRailjet::SystemChange, {QStringLiteral("8"), QStringLiteral("6")}},
        {MtdRailjet::Functions, {QStringLiteral("0")}},
    };
    return ways.value(state);
}
