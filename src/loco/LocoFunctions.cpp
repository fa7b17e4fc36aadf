#include "LocoFunctions.h"

#include <QHash>

const QVector<LocoFunction> &LocoFunctions()
{
    static const QVector<LocoFunction> functions{
        {"Hauptschalter", "hauptschalter", &LocoData::Hauptschalter},
        {"Batterieschalter", "batterieschalter", &LocoData::Batterieschalter},
        {"Spannung", "spannung", &LocoData::Spannung},
        {"Oberstrom", "oberstrom", &LocoData::Oberstrom},
        {"StromabnehmerStatus", "stromabnehmer_status", &LocoData::StromabnehmerStatus},
        {"EbulaDayNight", "ebula_daynight", &LocoData::EbulaDayNight},
        {"Fuehrerstand", "fuehrerstand", &LocoData::Fuehrerstand},
        {"Reverser", "reverser", &LocoData::Reverser},
        {"Zugkraftvorwahl", "zugkraftvorwahl", &LocoData::Zugkraftvorwahl},
        {"Zugart", "zugart", &LocoData::Zugart},
        {"VBrakeControl", "vbrake_control", &LocoData::VBrakeControl},
        {"VThrottleControl", "vthrottle_control", &LocoData::VThrottleControl},
        {"Teilnehmer", "teilnehmer", &LocoData::Teilnehmer},
        {"System_Land", "system_land", &LocoData::System_Land},
        {"Zugsammelschiene", "zugsammelschiene", &LocoData::Zugsammelschiene},
        {"Beschleunigungsmesser", "accelerometer", &LocoData::Beschleunigungsmesser},
        {"Batteriespannung", "batteriespannung", &LocoData::Batteriespannung},
        {"Speedometer", "speedometer", &LocoData::Speedometer},
        {"SpeedometerVsoll", "speedometerVsoll", &LocoData::SpeedometerVsoll},
        {"Vsollsteller", "vsollsteller", &LocoData::Vsollsteller},
        {"Tuer_LM", "tuer_lm", &LocoData::Tuer_LM},
        {"Tuer_LM_R", "tuer_lm_rechts", &LocoData::Tuer_LM_R},
        {"Sifa_Active", "sifa_active", &LocoData::Sifa_Active},
        {"Sifa_Weg", "sifa_weg", &LocoData::Sifa_Weg, 3},
        {"Sifa_zwang", "sifazwang", &LocoData::Sifa_zwang},
        {"AFB_Active", "afbstatus", &LocoData::AFB_Active},
        {"PZB_Active", "pzb_active", &LocoData::PZB_Active},
        {"PZB_State", "pzb_state", &LocoData::PZB_State},
        {"PZB85", "pzb_85", &LocoData::PZB85},
        {"PZB85_inv", "pzb_85_inv", &LocoData::PZB85_inv},
        {"PZB70", "pzb_70", &LocoData::PZB70},
        {"PZB70_inv", "pzb_70_inv", &LocoData::PZB70_inv},
        {"PZB55", "pzb_55", &LocoData::PZB55},
        {"PZB55_inv", "pzb_55_inv", &LocoData::PZB55_inv},
        {"PZB_wach", "pzb_wach", &LocoData::PZB_wach},
        {"PZB_zwang", "pzbzwang", &LocoData::PZB_zwang},
        {"PZB1000Hz", "pzb_1000Hz", &LocoData::PZB1000Hz},
        {"PZB1000Hz_inv", "pzb_1000Hz_inv", &LocoData::PZB1000Hz_inv},
        {"PZB500Hz", "pzb_500Hz", &LocoData::PZB500Hz},
        {"PZB500Hz_inv", "pzb_500Hz_inv", &LocoData::PZB500Hz_inv},
        {"PZBBefehl40", "pzb_Befehl40", &LocoData::PZBBefehl40},
        {"PZB_restriction", "pzb_restriction", &LocoData::PZB_restriction},
        {"LZBOnOff", "lzbonoff", &LocoData::LZBOnOff},
        {"LZBPanelStatus", "lzbpanelstatus", &LocoData::LZBPanelStatus},
        {"LZBDistance", "lzbdistance", &LocoData::LZBDistance},
        {"LZBDistance_100", "lzbdistance_100", &LocoData::LZBDistance_100},
        {"LZBBalken", "lzb_balken", &LocoData::LZBBalken},
        {"LZBSpeed", "lzbspeed", &LocoData::LZBSpeed},
        {"LZBTargetSpeed", "lzbtargetspeed", &LocoData::LZBTargetSpeed},
        {"LZBTargetSpeedH", "lzbtargetspeedH", &LocoData::LZBTargetSpeedH},
        {"LZBTargetSpeedZ", "lzbtargetspeedZ", &LocoData::LZBTargetSpeedZ},
        {"LZBTargetSpeedE", "lzbtargetspeedE", &LocoData::LZBTargetSpeedE},
        {"LZB_ML_B", "lzb_ml_b", &LocoData::LZB_ML_B},
        {"LZB_ML_ENDE", "lzb_ml_ende", &LocoData::LZB_ML_ENDE},
        {"LZB_ML_S", "lzb_ml_s", &LocoData::LZB_ML_S},
        {"LZB_ML_S_inv", "lzb_ml_s_inv", &LocoData::LZB_ML_S_inv},
        {"LZB_ML_G", "lzb_ml_g", &LocoData::LZB_ML_G},
        {"LZB_ML_G_inv", "lzb_ml_g_inv", &LocoData::LZB_ML_G_inv},
        {"LZB_ML_H", "lzb_ml_h", &LocoData::LZB_ML_H},
        {"LZB_ML_H_inv", "lzb_ml_h_inv", &LocoData::LZB_ML_H_inv},
        {"LZB_ML_UE", "lzb_ml_ue", &LocoData::LZB_ML_UE, 2},
        {"LocoBrakeCylinderBar", "locobrakecylinderbar", &LocoData::LocoBrakeCylinderBar},
        {"TrainBrakeCylinderBar", "trainbrakecylinderbar", &LocoData::TrainBrakeCylinderBar},
        {"HLL", "hll", &LocoData::HLL},
        {"HBL", "hbl", &LocoData::HBL},
        {"Federspeicherbremse", "federspeicherbremse", &LocoData::Federspeicherbremse},
        {"HoheAbbremsung", "HoheAbbremsung", &LocoData::HoheAbbremsung},
        {"Bremsart", "bremsart", &LocoData::Bremsart},
    };
    return functions;
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
