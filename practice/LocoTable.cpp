#include "LocoTable.h"

#include <algorithm>

namespace practice {
namespace {

// Mass in tonnes, effort kN, power kW, dynamic brake kN, deceleration, vmax, electric, German.
constexpr LocoPhysics kExpress = {480, 300, 6400, 150, 1.1, 200, true, true};
constexpr LocoPhysics kRailjet = {550, 300, 6400, 240, 1.1, 230, true, true};
constexpr LocoPhysics kRegional = {320, 300, 4200, 150, 1.1, 160, true, true};
constexpr LocoPhysics kMultipleUnit = {150, 180, 2500, 150, 1.2, 160, true, true};
constexpr LocoPhysics kGoods = {900, 300, 5400, 100, 0.8, 120, true, true};
constexpr LocoPhysics kAmerican = {1400, 800, 3300, 300, 0.7, 112, false, false};
constexpr LocoPhysics kShunter = {120, 80, 180, 0, 0.8, 45, false, false};

const QVector<BrakeRow> kBrakeTable = {
    {0, 65, 50, 80, 90, 90},       {66, 75, 60, 90, 100, 100},   {76, 95, 70, 100, 100, 120},
    {96, 110, 100, 100, 120, 140}, {111, 119, 120, 0, 120, 140}, {120, 134, 120, 0, 120, 160},
    {135, 144, 130, 0, 120, 160},  {145, 162, 140, 0, 0, 180},   {163, 183, 150, 0, 0, 200},
    {184, 205, 180, 0, 0, 230},    {206, 227, 200, 0, 0, 230},   {228, 250, 220, 0, 0, 230},
};

// The function test and the train data entry of the touch screen write to these numbers.
const QVector<FixedController> kTouchNumbers = {
    {84, "SifaLampTest", 0, 1},  {101, "PZB_LampTest", 0, 3}, {102, "LowBrakePercent", 0, 1},
    {103, "LZB_LampTest", 0, 1}, {142, "DisplayTest", 0, 1},
};

QVector<Block> With(const QVector<Block> &common, std::initializer_list<Block> own)
{
    QVector<Block> all = common;
    for (const Block &block : own)
        all.append(block);
    all.append(Blocks::Equipment);
    return all;
}

QVector<LocoRow> MakeLocos()
{
    using namespace Blocks;
    const QVector<Block> panel = {Blocks::Levers, Throttle, Electric, VoltsBattery, AirBar,
                                  Sifa,           PzbKeys,  LzbLamps, LzbEnde};
    const auto multiple = [](const Block &pzb) -> QVector<Block> {
        return {Blocks::Levers, Throttle,        Electric, AirBar,   Speed160, Sifa,
                PzbKeys,        PzbForcedTriple, pzb,      LzbLamps, LzbEnde};
    };
    const QVector<Block> touch = {Blocks::Levers, Throttle,      Electric,  ShareBattery,
                                  AirBar,         Speed250,      EffortKn,  DoorsHalf,
                                  Sifa,           PzbKeys,       PzbForced, PzbTouch,
                                  LzbLamps,       LzbEndePhases, LzbMetres, LzbSpeed};
    const QVector<FunctionSetting> shares = {{"VThrottleControl", 0, 100, 1},
                                             {"VBrakeControl", 0, 100, 1}};
    const QVector<FunctionSetting> touchSettings = {
        {"VThrottleControl", 0, 100, 1}, {"VBrakeControl", 0, 100, 1},
        {"Batteriespannung", 0, 110, 1}, {"Beschleunigungsmesser", -300, 300},
        {"Zugkraftvorwahl", -300, 300},  {"Oberstrom", 0, 600, 1}};
    return {
        {"BR 101 042 Rheintal",
         "br101",
         "BR 101",
         1,
         2,
         kExpress,
         With(panel,
              {Speed250, EffortPercent, Doors, PzbForced, PzbLamps, LzbKilometres,
               Blocks::LzbSpeed}),
         {{"Beschleunigungsmesser", -150, 300, 1}, {"Zugkraftvorwahl", -150, 300, 1}},
         {},
         {}},
        {"BR 145 023 Rheintal",
         "br145",
         "BR 145",
         1,
         5,
         kRegional,
         With(panel,
              {Speed160, EffortKn, DoorsShortNames, PzbForced, PzbNumbers, LzbKilometres,
               LzbDigits}),
         shares,
         {},
         {}},
        {"BR 185 112 Rheintal",
         "br185",
         "BR 185",
         2,
         6,
         kRegional,
         With(panel, {Speed160, EffortKn, Doors, PzbForced, PzbLamps, LzbMetres, LzbDigits}),
         shares,
         {},
         kBrakeTable},
        {"BR 442 205 Talent",
         "br442",
         "BR 442",
         3,
         1,
         kMultipleUnit,
         With(multiple(PzbUnit), {VoltsBattery, EffortKn, Doors, LzbMetres, Blocks::LzbSpeed}),
         {{"Spannung", 10, 20}, {"VThrottleControl", 0, 100, 1}, {"VBrakeControl", 0, 100, 1}},
         {},
         {}},
        {"vR_Apmbzf Steuerwagen",
         "apmbzf",
         "vR_Apmbzf",
         4,
         6,
         kRegional,
         With(panel, {Speed160, EffortPercent, Doors, PzbForced, PzbLamps, LzbMetres, LzbDigits}),
         {{"Beschleunigungsmesser", -150, 300, 1}, {"Zugkraftvorwahl", -150, 300, 1}},
         {},
         {}},
        {"BR 146 227 Dosto",
         "br146",
         "BR 146",
         4,
         3,
         kRegional,
         With(panel,
              {Speed160, EffortKn, DoorsShortNames, PzbForced, PzbLamps, LzbMetres,
               Blocks::LzbSpeed}),
         shares,
         {},
         {}},
        {"Railjet 1116 201", "railjet", "Railjet", 5, 1, kRailjet, With(touch, {}), touchSettings,
         kTouchNumbers, kBrakeTable},
        {"ÖBB 8090 715",
         "oebb8090",
         "ÖBB 8090",
         8,
         1,
         kRailjet,
         With(touch, {}),
         touchSettings,
         {},
         {}},
        {"BR 425 071 Quietschie",
         "br425",
         "BR 425",
         9,
         2,
         kMultipleUnit,
         With(multiple(PzbLamps),
              {VoltsBattery, EffortPercent, Doors, LzbKilometres, Blocks::LzbSpeed}),
         {{"Oberstrom", 0, 400}},
         {},
         {}},
        {"BR 428 102 Flirt",
         "br428",
         "BR 428",
         10,
         3,
         kMultipleUnit,
         With(multiple(PzbLamps), {EffortKn, Doors, LzbMetres, Blocks::LzbSpeed}),
         {{"Batteriespannung", 0, 0, 0, 110}},
         {},
         {}},
        {"BR 1442 310 Talent",
         "br1442",
         "BR 1442",
         11,
         6,
         kMultipleUnit,
         With(multiple(PzbLamps), {VoltsBattery, EffortKn, DoorsShortNames, LzbMetres, LzbDigits}),
         {{"Beschleunigungsmesser", -150, 150}, {"Zugkraftvorwahl", -150, 150}},
         {},
         {}},
        {"BR 155 204 Container",
         "br155",
         "BR 155",
         12,
         5,
         kGoods,
         With({Blocks::Levers, Throttle, Electric, VoltsBattery, AirBar, Speed160, EffortKn,
               Blocks::Sifa, PzbKeys},
              {Doors, PzbForced, PzbNumbers, LzbLamps, LzbEndePhases, LzbKilometres, LzbDigits}),
         shares,
         {},
         {}},
        {"BR 151 081 Erzzug",
         "br151",
         "BR 151",
         13,
         3,
         kGoods,
         With(panel, {Speed160, EffortKn, Doors, PzbForced, PzbLamps, LzbMetres, Blocks::LzbSpeed}),
         shares,
         {},
         {}},
        {"ES44AC 5412",
         "es44ac",
         "ES44AC",
         100,
         1,
         kAmerican,
         With({Blocks::Levers, ThrottleUs, SpeedMph, EffortUs, AirPsi}, {Doors}),
         {},
         {},
         {}},
        {"Köf III 332 241",
         "",
         "",
         0,
         0,
         kShunter,
         With({Blocks::Levers, Throttle, AirBar, Speed160, EffortKn}, {Doors}),
         {},
         {},
         {}},
    };
}

LocoController FromRow(const ControllerRow &row)
{
    return {QString::fromUtf8(row.name),
            QString::fromUtf8(row.key),
            row.min,
            row.max,
            row.initial,
            row.read,
            row.write,
            row.hand};
}

} // namespace

const QVector<LocoRow> &Locos()
{
    static const QVector<LocoRow> locos = MakeLocos();
    return locos;
}

QStringList LocoNames()
{
    QStringList names;
    for (const LocoRow &loco : Locos())
        names.append(QString::fromUtf8(loco.name));
    return names;
}

const LocoRow *FindLoco(const QString &name)
{
    const auto found = std::find_if(Locos().cbegin(), Locos().cend(), [&name](const LocoRow &loco) {
        return QString::fromUtf8(loco.name) == name;
    });
    return found == Locos().cend() ? nullptr : &*found;
}

QVector<LocoController> ControllersOf(const LocoRow &loco)
{
    QVector<LocoController> all;
    auto fixed = loco.fixedIds.cbegin();
    const auto addFixed = [&all, &fixed, &loco] {
        for (; fixed != loco.fixedIds.cend() && fixed->id == all.size(); ++fixed)
            all.append(FromRow({fixed->name, fixed->min, fixed->max}));
    };
    for (const Block &block : loco.blocks) {
        for (const ControllerRow &row : block) {
            addFixed();
            all.append(FromRow(row));
        }
    }
    addFixed();
    while (fixed != loco.fixedIds.cend()) {
        LocoController reserve = FromRow({"", 0, 1});
        reserve.name = QStringLiteral("Reserve_%1").arg(all.size(), 3, 10, QLatin1Char('0'));
        all.append(reserve);
        addFixed();
    }
    return all;
}

} // namespace practice
