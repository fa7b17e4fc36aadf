#include "ControllerTable.h"

#include <cmath>

namespace practice {
namespace {

bool On(double value)
{
    return value > 0.5;
}

double Preset(const Cab &cab)
{
    return cab.levers.throttle > 0.0 ? cab.levers.throttle * cab.maxEffort
                                     : -cab.levers.brake * cab.maxDynamicBrake;
}

constexpr ControllerRow kLevers[] = {
    {"AutomaticDriver", 0, 1, "", [](const Cab &cab) { return double(cab.automatic); },
     [](Cab &cab, double value) { cab.automatic = On(value); }},
    {"TrainBrakeControl", 0, 1, "VBrakeControl", [](const Cab &cab) { return cab.levers.brake; },
     [](Cab &cab, double value) { cab.levers.brake = value; }, Hand::Driving},
    {"EngineBrakeControl", 0, 1, "", [](const Cab &cab) { return cab.levers.locoBrake; },
     [](Cab &cab, double value) { cab.levers.locoBrake = value; }, Hand::Driving},
    {"DynamicBrake", 0, 1, "", [](const Cab &cab) { return cab.levers.dynamicBrake; },
     [](Cab &cab, double value) { cab.levers.dynamicBrake = value; }, Hand::Driving},
    {"Reverser", -1, 1, "Reverser", [](const Cab &cab) { return double(cab.levers.reverser); },
     [](Cab &cab, double value) { cab.levers.reverser = int(std::lround(value)); }, Hand::Driving},
};

constexpr ControllerRow kThrottle[] = {
    {"VirtualThrottle", 0, 1, "VThrottleControl",
     [](const Cab &cab) { return cab.levers.throttle; },
     [](Cab &cab, double value) { cab.levers.throttle = value; }, Hand::Driving},
    {"AFB", 0, 1, "AFB_Active", [](const Cab &cab) { return double(cab.levers.afb); },
     [](Cab &cab, double value) { cab.levers.afb = On(value); }, Hand::Driving},
    {"AFB_Speed", 0, 250, "Vsollsteller", [](const Cab &cab) { return cab.levers.afbSpeed; },
     [](Cab &cab, double value) { cab.levers.afbSpeed = value; }, Hand::Driving},
    {"AFB_TargetSpeed", 0, 250, "SpeedometerVsoll",
     [](const Cab &cab) { return cab.levers.afbSpeed; }},
};

constexpr ControllerRow kThrottleUs[] = {
    {"Regulator", 0, 1, "Zugkraftvorwahl",
     [](const Cab &cab) { return std::round(cab.levers.throttle * 8.0) / 8.0; },
     [](Cab &cab, double value) { cab.levers.throttle = std::round(value * 8.0) / 8.0; },
     Hand::Driving},
};

constexpr ControllerRow kElectric[] = {
    {"PantographControl", 0, 1, "StromabnehmerStatus",
     [](const Cab &cab) { return double(cab.switches.pantograph); },
     [](Cab &cab, double value) { cab.switches.pantograph = On(value); }, Hand::Switches},
    {"MainSwitch", 0, 1, "Hauptschalter",
     [](const Cab &cab) { return double(cab.switches.mainSwitch); },
     [](Cab &cab, double value) { cab.switches.mainSwitch = On(value) && cab.switches.pantograph; },
     Hand::Switches},
    {"LineVoltage", 0, 20, "Spannung", [](const Cab &cab) { return cab.lineVoltage; }},
    {"LineCurrent", 0, 600, "Oberstrom", [](const Cab &cab) { return cab.current; }},
    {"BatterySwitch", 0, 1, "Batterieschalter",
     [](const Cab &cab) { return double(cab.switches.battery); },
     [](Cab &cab, double value) { cab.switches.battery = On(value); }, Hand::Switches},
    {"TrainHeating", 0, 1, "Zugsammelschiene",
     [](const Cab &cab) { return double(cab.switches.heating && cab.switches.mainSwitch); },
     [](Cab &cab, double value) { cab.switches.heating = On(value); }, Hand::Switches},
    {"ActiveCab", 0, 2, "Fuehrerstand", [](const Cab &cab) { return double(cab.switches.cab); },
     [](Cab &cab, double value) { cab.switches.cab = int(std::lround(value)); }, Hand::Switches},
    {"SystemSelect", 0, 3, "System_Land",
     [](const Cab &cab) { return double(cab.switches.system); },
     [](Cab &cab, double value) { cab.switches.system = int(std::lround(value)); }, Hand::Switches},
};

constexpr ControllerRow kVoltsBattery[] = {
    {"BatteryVoltage", 0, 150, "Batteriespannung",
     [](const Cab &cab) {
         return !cab.switches.battery ? 0.0 : cab.switches.mainSwitch ? 110.5 : 104.0;
     }},
};

constexpr ControllerRow kShareBattery[] = {
    {"BatteryState", 0, 1, "Batteriespannung",
     [](const Cab &cab) { return double(cab.switches.battery); }},
};

constexpr ControllerRow kSpeed160[] = {
    {"SpeedometerKPH", 0, 160, "Speedometer", [](const Cab &cab) { return cab.Kmh(); }},
};

constexpr ControllerRow kSpeed250[] = {
    {"SpeedometerKPH", 0, 250, "Speedometer", [](const Cab &cab) { return cab.Kmh(); }},
};

constexpr ControllerRow kSpeedMph[] = {
    {"SpeedometerMPH", 0, 100, "Speedometer", [](const Cab &cab) { return cab.Mph(); }},
};

constexpr ControllerRow kEffortKn[] = {
    {"TractiveEffort", -150, 300, "Beschleunigungsmesser",
     [](const Cab &cab) { return cab.effort; }},
    {"EffortPreset", -150, 300, "Zugkraftvorwahl", Preset},
};

constexpr ControllerRow kEffortPercent[] = {
    {"TractiveEffortPercent", -100, 100, "Beschleunigungsmesser",
     [](const Cab &cab) {
         return 100.0 * cab.effort / (cab.effort < 0.0 ? cab.maxDynamicBrake : cab.maxEffort);
     }},
    {"EffortPresetPercent", -100, 100, "Zugkraftvorwahl",
     [](const Cab &cab) {
         return 100.0 * (cab.levers.throttle > 0.0 ? cab.levers.throttle : -cab.levers.brake);
     }},
};

constexpr ControllerRow kEffortUs[] = {
    {"TractiveEffortKlb", -100, 180, "Beschleunigungsmesser",
     [](const Cab &cab) { return cab.effort / 4.448; }},
};

constexpr ControllerRow kAirBar[] = {
    {"BrakePipePressureBAR", 0, 10, "HLL", [](const Cab &cab) { return cab.brakePipe; }},
    {"MainReservoirPressureBAR", 0, 12, "HBL", [](const Cab &cab) { return cab.mainReservoir; }},
    {"LocoBrakeCylinderPressureBAR", 0, 10, "LocoBrakeCylinderBar",
     [](const Cab &cab) { return cab.locoCylinder; }},
    {"TrainBrakeCylinderPressureBAR", 0, 10, "TrainBrakeCylinderBar",
     [](const Cab &cab) { return cab.trainCylinder; }},
    {"HandBrake", 0, 1, "Federspeicherbremse",
     [](const Cab &cab) { return double(cab.switches.springBrake); },
     [](Cab &cab, double value) { cab.switches.springBrake = On(value); }, Hand::Switches},
    {"BrakeMode", 0, 2, "Bremsart", [](const Cab &cab) { return double(cab.switches.brakeMode); },
     [](Cab &cab, double value) { cab.switches.brakeMode = int(std::lround(value)); },
     Hand::Switches},
    {"HighBraking", 0, 1, "HoheAbbremsung",
     [](const Cab &cab) { return double(cab.trainCylinder > 3.0 && cab.Kmh() > 50.0); }},
};

// Pressures of an American train: brake pipe 90, cylinders 72, main reservoir 130 to 140 psi.
constexpr ControllerRow kAirPsi[] = {
    {"AirBrakePipePressurePSI", 0, 120, "HLL",
     [](const Cab &cab) { return cab.brakePipe / 5.0 * 90.0; }},
    {"MainReservoirPressurePSI", 0, 160, "HBL",
     [](const Cab &cab) { return 130.0 + (cab.mainReservoir - 8.5) / 1.5 * 10.0; }},
    {"LocoBrakeCylinderPressurePSI", 0, 100, "LocoBrakeCylinderBar",
     [](const Cab &cab) { return cab.locoCylinder / 3.8 * 72.0; }},
    {"EqReservoirPressurePSI", 0, 120, "TrainBrakeCylinderBar",
     [](const Cab &cab) { return 90.0 - 26.0 * cab.levers.brake; }},
    {"HandBrake", 0, 1, "", [](const Cab &cab) { return double(cab.switches.springBrake); },
     [](Cab &cab, double value) { cab.switches.springBrake = On(value); }, Hand::Switches},
};

double AnyDoor(const Cab &cab)
{
    return double(cab.switches.doorLeft || cab.switches.doorRight);
}

double DoorLeft(const Cab &cab)
{
    return double(cab.switches.doorLeft);
}

double DoorRight(const Cab &cab)
{
    return double(cab.switches.doorRight);
}

void MoveDoorLeft(Cab &cab, double value)
{
    cab.switches.doorLeft = On(value) && cab.Standing();
}

void MoveDoorRight(Cab &cab, double value)
{
    cab.switches.doorRight = On(value) && cab.Standing();
}

constexpr ControllerRow kDoors[] = {
    {"DoorsOpenCloseLeft", 0, 1, "", DoorLeft, MoveDoorLeft, Hand::Switches},
    {"DoorsOpenCloseRight", 0, 1, "", DoorRight, MoveDoorRight, Hand::Switches},
    {"DoorLight", 0, 1, "Tuer_LM", AnyDoor},
    {"DoorLightRight", 0, 1, "Tuer_LM_R", DoorRight},
};

constexpr ControllerRow kDoorsHalf[] = {
    {"DoorsOpenCloseLeft", 0, 1, "", DoorLeft, MoveDoorLeft, Hand::Switches},
    {"DoorsOpenCloseRight", 0, 1, "", DoorRight, MoveDoorRight, Hand::Switches},
    {"DoorState", 0, 1, "Tuer_LM",
     [](const Cab &cab) { return AnyDoor(cab) > 0.0 ? 1.0
                              : cab.Standing()      ? 0.0
                                                    : 0.5; }},
};

constexpr ControllerRow kDoorsShortNames[] = {
    {"Door_l", 0, 1, "", DoorLeft, MoveDoorLeft, Hand::Switches},
    {"Door_r", 0, 1, "", DoorRight, MoveDoorRight, Hand::Switches},
    {"DoorLight", 0, 1, "Tuer_LM", AnyDoor},
};

constexpr ControllerRow kEquipment[] = {
    {"Horn", 0, 1},
    {"Bell", 0, 1},
    {"Wipers", 0, 3},
    {"WiperIntervall", 0, 10},
    {"Sander", 0, 1},
    {"Headlights", 0, 3},
    {"TailLights", 0, 1},
    {"CabLight", 0, 1},
    {"InstrumentLights", 0, 1},
    {"DeskLight", 0, 1},
    {"TimetableLight", 0, 1},
    {"EngineRoomLight", 0, 1},
    {"PassengerLights", 0, 1},
    {"EbulaBrightness", 0, 1, "EbulaDayNight"},
    {"UnitsInTrain", 0, 8, "Teilnehmer", nullptr, nullptr, Hand::None, 1},
    {"DriverWindowLeft", 0, 1},
    {"DriverWindowRight", 0, 1},
    {"SunBlindLeft", 0, 1},
    {"SunBlindRight", 0, 1},
    {"CabDoorLeft", 0, 1},
    {"CabDoorRight", 0, 1},
    {"MachineRoomDoor", 0, 1},
    {"CabHeater", 0, 5},
    {"AirCondition", 0, 5},
    {"CoolingFan1", 0, 2},
    {"CoolingFan2", 0, 2},
    {"CompressorSwitch", 0, 2},
    {"EmergencyBrakeHandle", 0, 1},
    {"EmergencyBrakeBridge", 0, 1},
    {"WheelSlipProtection", 0, 1},
    {"FlangeLubrication", 0, 1},
    {"MirrorLeft", 0, 1},
    {"MirrorRight", 0, 1},
    {"RadioChannel", 0, 99},
    {"RadioVolume", 0, 10},
    {"DestinationSign", 0, 99},
    {"RouteNumberHundreds", 0, 9},
    {"RouteNumberTens", 0, 9},
    {"RouteNumberOnes", 0, 9},
    {"SpeakerVolume", 0, 10},
    {"Buzzer", 0, 1},
    {"CabFan", 0, 3},
    {"Refrigerator", 0, 1},
    {"Armrest", 0, 1},
    {"SeatHeight", 0, 5},
    {"FootrestHeight", 0, 5},
    {"DisplayBrightnessLeft", 0, 100},
    {"DisplayBrightnessRight", 0, 100},
    {"LampTest", 0, 1},
    {"FireAlarmReset", 0, 1},
    {"CoupleFront", 0, 1},
    {"CoupleRear", 0, 1},
    {"SpotlightsHigh", 0, 1},
    {"MarkerLights", 0, 3},
    {"HillStart", 0, 1},
};

} // namespace

namespace Blocks {
const Block Levers = RowsOf(kLevers);
const Block Throttle = RowsOf(kThrottle);
const Block ThrottleUs = RowsOf(kThrottleUs);
const Block Electric = RowsOf(kElectric);
const Block VoltsBattery = RowsOf(kVoltsBattery);
const Block ShareBattery = RowsOf(kShareBattery);
const Block Speed160 = RowsOf(kSpeed160);
const Block Speed250 = RowsOf(kSpeed250);
const Block SpeedMph = RowsOf(kSpeedMph);
const Block EffortKn = RowsOf(kEffortKn);
const Block EffortPercent = RowsOf(kEffortPercent);
const Block EffortUs = RowsOf(kEffortUs);
const Block AirBar = RowsOf(kAirBar);
const Block AirPsi = RowsOf(kAirPsi);
const Block Doors = RowsOf(kDoors);
const Block DoorsHalf = RowsOf(kDoorsHalf);
const Block DoorsShortNames = RowsOf(kDoorsShortNames);
const Block Equipment = RowsOf(kEquipment);
} // namespace Blocks

} // namespace practice
