#include "LocoFiles.h"

#include "Numbers.h"

#include <algorithm>

namespace practice {
namespace {

// The order in which a configuration is saved.
constexpr const char *kFunctions[] = {
    "Hauptschalter",
    "Batterieschalter",
    "Spannung",
    "Oberstrom",
    "StromabnehmerStatus",
    "EbulaDayNight",
    "Fuehrerstand",
    "Reverser",
    "Zugkraftvorwahl",
    "Zugart",
    "VBrakeControl",
    "VThrottleControl",
    "Teilnehmer",
    "System_Land",
    "Zugsammelschiene",
    "Beschleunigungsmesser",
    "Batteriespannung",
    "Speedometer",
    "SpeedometerVsoll",
    "Vsollsteller",
    "Tuer_LM",
    "Tuer_LM_R",
    "Sifa_Active",
    "Sifa_Weg",
    "Sifa_zwang",
    "AFB_Active",
    "PZB_Active",
    "PZB_State",
    "PZB85",
    "PZB85_inv",
    "PZB70",
    "PZB70_inv",
    "PZB55",
    "PZB55_inv",
    "PZB_wach",
    "PZB_zwang",
    "PZB1000Hz",
    "PZB1000Hz_inv",
    "PZB500Hz",
    "PZB500Hz_inv",
    "PZBBefehl40",
    "PZB_restriction",
    "LZBOnOff",
    "LZBPanelStatus",
    "LZBDistance",
    "LZBDistance_100",
    "LZBBalken",
    "LZBSpeed",
    "LZBTargetSpeed",
    "LZBTargetSpeedH",
    "LZBTargetSpeedZ",
    "LZBTargetSpeedE",
    "LZB_ML_B",
    "LZB_ML_ENDE",
    "LZB_ML_S",
    "LZB_ML_S_inv",
    "LZB_ML_G",
    "LZB_ML_G_inv",
    "LZB_ML_H",
    "LZB_ML_H_inv",
    "LZB_ML_UE",
    "LocoBrakeCylinderBar",
    "TrainBrakeCylinderBar",
    "HLL",
    "HBL",
    "Federspeicherbremse",
    "HoheAbbremsung",
    "Bremsart",
};

QString FunctionLine(const char *key, const LocoRow &loco,
                     const QVector<LocoController> &controllers)
{
    const QString name = QString::fromUtf8(key);
    const auto setting =
        std::find_if(loco.settings.cbegin(), loco.settings.cend(),
                     [&name](const FunctionSetting &each) { return name == each.key; });
    const auto controller =
        std::find_if(controllers.cbegin(), controllers.cend(),
                     [&name](const LocoController &each) { return each.key == name; });
    const bool assigned = controller != controllers.cend();
    const bool set = setting != loco.settings.cend();
    if (!assigned && !set)
        return {};
    const LocoController none;
    const LocoController &source = assigned ? *controller : none;
    const FunctionSetting limits = set ? *setting : FunctionSetting{key};
    const auto id = assigned ? std::distance(controllers.cbegin(), controller) : -1;
    return name
        + QStringLiteral("=%1:%2:0:%3:%4:%5:%6:%7:%8\n")
              .arg(QString::number(id), source.name, QString::number(source.min),
                   QString::number(source.max), ToText(limits.std), QString::number(limits.overMin),
                   QString::number(limits.overMax), QString::number(limits.adjust));
}

QString BrakeLine(int number, const BrakeRow &row)
{
    // The columns stand for the brake positions 1 to 9: 2 is G, 4 is P, 9 passenger.
    return QStringLiteral("BRT%1=%2:%3:%4:0:%5:0:%6:0:0:0:0:%7\n")
        .arg(QString::number(number), QString::number(row.from), QString::number(row.to),
             QString::number(row.setValue), QString::number(row.vmaxG), QString::number(row.vmaxP),
             QString::number(row.vmaxPassenger));
}

bool IsHexDigit(QChar c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// A text as it stands in an INI file whatever the codec of its reader: what is not ASCII is
/// escaped, and so is a hexadecimal digit that follows an escape and would be taken for its part.
QByteArray IniText(const QString &text)
{
    QByteArray out;
    bool escaped = false;
    for (const QChar c : text) {
        escaped = c.unicode() >= 0x80 || (escaped && IsHexDigit(c));
        out += escaped ? "\\x" + QByteArray::number(c.unicode(), 16) : QByteArray(1, c.toLatin1());
    }
    return out;
}

} // namespace

QByteArray LocoConfigText(const LocoRow &loco)
{
    QString text = QStringLiteral(
        "#ConfigName=CtrlID:CtrlName:CtrlValue:CtrlMin:CtrlMax:CtrlSTD:CtrlOverMin:CtrolOverMax\n");
    text += QStringLiteral("Loconame=%1\nVersion=1.0\nAutor=Zugblick\n")
                .arg(QString::fromUtf8(loco.title));
    text += QStringLiteral("Display=%1\nConfigTyp=%2\n")
                .arg(QString::number(loco.display), QString::number(loco.configTyp));
    const int touchScreen = loco.display <= 11 ? 1 : 0; // goods locos and the American have none
    text += QStringLiteral("IsEbula=1\nIsDMI=%1\nIsDDI=1\n").arg(touchScreen);
    const QVector<LocoController> controllers = ControllersOf(loco);
    for (const char *key : kFunctions)
        text += FunctionLine(key, loco, controllers);
    for (int row = 0; row < loco.brakeTable.size(); ++row)
        text += BrakeLine(row, loco.brakeTable[row]);
    return text.toUtf8();
}

QByteArray LocoAssignmentsText()
{
    QByteArray text;
    for (const LocoRow &loco : Locos()) {
        if (!*loco.config)
            continue;
        text += QByteArray("[") + loco.config + "]\nfilename=" + loco.config
            + ".cfg\nlocos\\1\\loco=" + IniText(QString::fromUtf8(loco.name))
            + "\nlocos\\size=1\n\n";
    }
    text.chop(1);
    return text;
}

} // namespace practice
