#include "LocoFunctions.h"

#include <QHash>
#include <QMap>

#include <algorithm>

const QVector<LocoFunction> &LocoFunctions()
{
    using Group = FunctionGroup;
    static const QVector<LocoFunction> functions{
        {"Hauptschalter", "hauptschalter", Group::Power, "Hauptschalter", &LocoData::Hauptschalter},
        {"Batterieschalter", "batterieschalter", Group::Power, "Batterieschalter",
         &LocoData::Batterieschalter},
        {"Spannung", "spannung", Group::Power, "Fahrdrahtspannung", &LocoData::Spannung},
        {"Oberstrom", "oberstrom", Group::Power, "Oberstrom", &LocoData::Oberstrom},
        {"StromabnehmerStatus", "stromabnehmer_status", Group::Power, "Stromabnehmer",
         &LocoData::StromabnehmerStatus},
        {"EbulaDayNight", "ebula_daynight", Group::Cab, "EBuLa Tag/Nacht",
         &LocoData::EbulaDayNight},
        {"Fuehrerstand", "fuehrerstand", Group::Cab, "Besetzter Führerstand",
         &LocoData::Fuehrerstand},
        {"Reverser", "reverser", Group::Drive, "Richtungswender", &LocoData::Reverser},
        {"Zugkraftvorwahl", "zugkraftvorwahl", Group::Drive, "Zugkraftvorwahl",
         &LocoData::Zugkraftvorwahl},
        {"Zugart", "zugart", Group::Cab, "Zugart (PZB)", &LocoData::Zugart},
        {"VBrakeControl", "vbrake_control", Group::Brake, "Bremsregler", &LocoData::VBrakeControl},
        {"VThrottleControl", "vthrottle_control", Group::Drive, "Fahrregler",
         &LocoData::VThrottleControl},
        {"Teilnehmer", "teilnehmer", Group::Cab, "Teilnehmer (Traktion)", &LocoData::Teilnehmer},
        {"System_Land", "system_land", Group::Cab, "Land und Stromsystem", &LocoData::System_Land},
        {"Zugsammelschiene", "zugsammelschiene", Group::Power, "Zugsammelschiene",
         &LocoData::Zugsammelschiene},
        {"Beschleunigungsmesser", "accelerometer", Group::Drive, "Zug- und Bremskraft",
         &LocoData::Beschleunigungsmesser},
        {"Batteriespannung", "batteriespannung", Group::Power, "Batteriespannung",
         &LocoData::Batteriespannung},
        {"Speedometer", "speedometer", Group::Drive, "Geschwindigkeit", &LocoData::Speedometer},
        {"SpeedometerVsoll", "speedometerVsoll", Group::Drive, "Sollgeschwindigkeit (AFB)",
         &LocoData::SpeedometerVsoll},
        {"Vsollsteller", "vsollsteller", Group::Drive, "Vsoll-Steller", &LocoData::Vsollsteller},
        {"Tuer_LM", "tuer_lm", Group::Cab, "Türen links", &LocoData::Tuer_LM},
        {"Tuer_LM_R", "tuer_lm_rechts", Group::Cab, "Türen rechts", &LocoData::Tuer_LM_R},
        {"Sifa_Active", "sifa_active", Group::Sifa, "Sifa eingeschaltet", &LocoData::Sifa_Active},
        {"Sifa_Weg", "sifa_weg", Group::Sifa, "Sifa-Leuchtmelder", &LocoData::Sifa_Weg, 3},
        {"Sifa_zwang", "sifazwang", Group::Sifa, "Sifa-Zwangsbremsung", &LocoData::Sifa_zwang},
        {"AFB_Active", "afbstatus", Group::Drive, "AFB eingeschaltet", &LocoData::AFB_Active},
        {"PZB_Active", "pzb_active", Group::Pzb, "PZB eingeschaltet", &LocoData::PZB_Active},
        {"PZB_State", "pzb_state", Group::Pzb, "PZB-Zustand", &LocoData::PZB_State},
        {"PZB85", "pzb_85", Group::Pzb, "Leuchtmelder 85", &LocoData::PZB85},
        {"PZB85_inv", "pzb_85_inv", Group::Pzb, "Leuchtmelder 85, invers", &LocoData::PZB85_inv},
        {"PZB70", "pzb_70", Group::Pzb, "Leuchtmelder 70", &LocoData::PZB70},
        {"PZB70_inv", "pzb_70_inv", Group::Pzb, "Leuchtmelder 70, invers", &LocoData::PZB70_inv},
        {"PZB55", "pzb_55", Group::Pzb, "Leuchtmelder 55", &LocoData::PZB55},
        {"PZB55_inv", "pzb_55_inv", Group::Pzb, "Leuchtmelder 55, invers", &LocoData::PZB55_inv},
        {"PZB_wach", "pzb_wach", Group::Pzb, "PZB Wachsam", &LocoData::PZB_wach},
        {"PZB_zwang", "pzbzwang", Group::Pzb, "PZB-Zwangsbremsung", &LocoData::PZB_zwang},
        {"PZB1000Hz", "pzb_1000Hz", Group::Pzb, "Leuchtmelder 1000 Hz", &LocoData::PZB1000Hz},
        {"PZB1000Hz_inv", "pzb_1000Hz_inv", Group::Pzb, "Leuchtmelder 1000 Hz, invers",
         &LocoData::PZB1000Hz_inv},
        {"PZB500Hz", "pzb_500Hz", Group::Pzb, "Leuchtmelder 500 Hz", &LocoData::PZB500Hz},
        {"PZB500Hz_inv", "pzb_500Hz_inv", Group::Pzb, "Leuchtmelder 500 Hz, invers",
         &LocoData::PZB500Hz_inv},
        {"PZBBefehl40", "pzb_Befehl40", Group::Pzb, "Leuchtmelder Befehl 40",
         &LocoData::PZBBefehl40},
        {"PZB_restriction", "pzb_restriction", Group::Pzb, "Restriktive Überwachung",
         &LocoData::PZB_restriction},
        {"LZBOnOff", "lzbonoff", Group::Lzb, "LZB ein/aus", &LocoData::LZBOnOff},
        {"LZBPanelStatus", "lzbpanelstatus", Group::Lzb, "LZB-Anzeige aktiv",
         &LocoData::LZBPanelStatus},
        {"LZBDistance", "lzbdistance", Group::Lzb, "Zielentfernung", &LocoData::LZBDistance},
        {"LZBDistance_100", "lzbdistance_100", Group::Lzb, "Zielentfernung, 100 m",
         &LocoData::LZBDistance_100},
        {"LZBBalken", "lzb_balken", Group::Lzb, "Zielentfernungsbalken", &LocoData::LZBBalken},
        {"LZBSpeed", "lzbspeed", Group::Lzb, "Sollgeschwindigkeit", &LocoData::LZBSpeed},
        {"LZBTargetSpeed", "lzbtargetspeed", Group::Lzb, "Zielgeschwindigkeit",
         &LocoData::LZBTargetSpeed},
        {"LZBTargetSpeedH", "lzbtargetspeedH", Group::Lzb, "Zielgeschwindigkeit 100er",
         &LocoData::LZBTargetSpeedH},
        {"LZBTargetSpeedZ", "lzbtargetspeedZ", Group::Lzb, "Zielgeschwindigkeit 10er",
         &LocoData::LZBTargetSpeedZ},
        {"LZBTargetSpeedE", "lzbtargetspeedE", Group::Lzb, "Zielgeschwindigkeit 1er",
         &LocoData::LZBTargetSpeedE},
        {"LZB_ML_B", "lzb_ml_b", Group::LzbLamps, "Leuchtmelder B", &LocoData::LZB_ML_B},
        {"LZB_ML_ENDE", "lzb_ml_ende", Group::LzbLamps, "Leuchtmelder Ende",
         &LocoData::LZB_ML_ENDE},
        {"LZB_ML_S", "lzb_ml_s", Group::LzbLamps, "Leuchtmelder S", &LocoData::LZB_ML_S},
        {"LZB_ML_S_inv", "lzb_ml_s_inv", Group::LzbLamps, "Leuchtmelder S, invers",
         &LocoData::LZB_ML_S_inv},
        {"LZB_ML_G", "lzb_ml_g", Group::LzbLamps, "Leuchtmelder G", &LocoData::LZB_ML_G},
        {"LZB_ML_G_inv", "lzb_ml_g_inv", Group::LzbLamps, "Leuchtmelder G, invers",
         &LocoData::LZB_ML_G_inv},
        {"LZB_ML_H", "lzb_ml_h", Group::LzbLamps, "Leuchtmelder H", &LocoData::LZB_ML_H},
        {"LZB_ML_H_inv", "lzb_ml_h_inv", Group::LzbLamps, "Leuchtmelder H, invers",
         &LocoData::LZB_ML_H_inv},
        {"LZB_ML_UE", "lzb_ml_ue", Group::LzbLamps, "Leuchtmelder Ü", &LocoData::LZB_ML_UE, 2},
        {"LocoBrakeCylinderBar", "locobrakecylinderbar", Group::Brake, "Bremszylinderdruck Lok",
         &LocoData::LocoBrakeCylinderBar},
        {"TrainBrakeCylinderBar", "trainbrakecylinderbar", Group::Brake, "Bremszylinderdruck Zug",
         &LocoData::TrainBrakeCylinderBar},
        {"HLL", "hll", Group::Brake, "Hauptluftleitung (HLL)", &LocoData::HLL},
        {"HBL", "hbl", Group::Brake, "Hauptbehälterleitung (HBL)", &LocoData::HBL},
        {"Federspeicherbremse", "federspeicherbremse", Group::Brake, "Federspeicherbremse",
         &LocoData::Federspeicherbremse},
        {"HoheAbbremsung", "HoheAbbremsung", Group::Brake, "Hohe Abbremsung",
         &LocoData::HoheAbbremsung},
        {"Bremsart", "bremsart", Group::Brake, "Bremsart", &LocoData::Bremsart},
    };
    return functions;
}

const QVector<LocoFunction> &LocoFunctionsInFormOrder()
{
    static const QVector<LocoFunction> functions = [] {
        QVector<LocoFunction> order = LocoFunctions();
        const auto at = [&order](const char *stem) {
            return std::find_if(order.begin(), order.end(), [stem](const LocoFunction &each) {
                return qstrcmp(each.stem, stem) == 0;
            });
        };
        const auto wach = at("pzb_wach");
        std::rotate(wach, wach + 2, at("pzb_restriction"));
        return order;
    }();
    return functions;
}

QString GroupLabel(FunctionGroup group)
{
    static const QMap<FunctionGroup, QString> labels{
        {FunctionGroup::Drive, QStringLiteral("Fahren")},
        {FunctionGroup::Power, QStringLiteral("Strom und Schalter")},
        {FunctionGroup::Brake, QStringLiteral("Bremse")},
        {FunctionGroup::Cab, QStringLiteral("Führerstand und Türen")},
        {FunctionGroup::Sifa, QStringLiteral("Sifa")},
        {FunctionGroup::Pzb, QStringLiteral("PZB")},
        {FunctionGroup::Lzb, QStringLiteral("LZB-Führungsgrößen")},
        {FunctionGroup::LzbLamps, QStringLiteral("LZB-Leuchtmelder")},
    };
    return labels.value(group);
}

const LocoFunction *FindLocoFunction(const QString &key)
{
    static const QHash<QString, const LocoFunction *> byKey = [] {
        QHash<QString, const LocoFunction *> hash;
        for (const LocoFunction &function : LocoFunctions())
            hash.insert(QLatin1String(function.key), &function);
        return hash;
    }();
    return byKey.value(key);
}
