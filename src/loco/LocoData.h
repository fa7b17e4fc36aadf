#pragma once

#include "Controllers.h"

#include <QString>
#include <QVector>

class QIODevice;

/// One row of the brake table: a range of brake percentages, and for each brake position the
/// highest speed in km/h that it allows.
struct BrtRow
{
    int from = -1; ///< brake percentage
    int to = -1; ///< brake percentage
    int setValue = -1;
    int vmax = -1; ///< km/h, filled when the row is looked up for a brake position
    QVector<int> columns; ///< km/h, one a brake position
};

/// The configuration of a loco: which controller of the simulator feeds which display function,
/// within which limits, and which displays apply. The main window owns the one that displays read
/// in place, on the GUI thread. It is no value: `activeControllers` points into the object itself.
///
/// A `.cfg` file is UTF-8 text of lines "key=text". A function line carries the nine fields of
/// `VControllerBase::ToConfigText`, a brake row reads "BRTn=from:to:setValue:column:column...".
/// The reader takes the lines in any order and passes over what it does not know.
class LocoData
{
public:
    LocoData() = default;
    Q_DISABLE_COPY_MOVE(LocoData)

    /// Brings every field back to its default.
    void Reset();

    /// Loads a file; false when it cannot be opened. The object is reset in either case, so that
    /// displays never go on with the configuration of another loco.
    bool ReadFile(const QString &path);
    /// Resets, then takes over the lines of an open device.
    void Read(QIODevice &device);

    /// Writes all functions. On failure the old file stays, the reason goes to the debug output
    /// and to `error`, and false is returned.
    bool WriteFile(const QString &path, QString *error = nullptr) const;
    /// Writes the lines of the file to an open device; false when the device refuses them.
    bool Write(QIODevice &device) const;

    /// Loads the file that `locos.cfg` in the work folder assigns to the loco, and stores its
    /// name in `outFile`. Without an assignment nothing changes and false is returned.
    bool LoadForLoco(const QString &workFolder, const QString &drivenLoco, QString &outFile);

    /// The ids of all active records, joined by ":", in the file's order and with its repeats;
    /// the text of the value request. Empty when no record is assigned.
    QString BuildIdList() const;

    /// Copies the value of each given record to every active record with the same id.
    void UpdateValues(const QVector<VControllerBase> &controllers);

    /// The brake rows that know the brake position (from 1), with `vmax` set to its speed.
    QVector<BrtRow> GetBrhRows(int brakeType) const;
    /// The speed in km/h of the last such row whose range holds the percentage, else -1.
    int GetBrhVmax(int brakePercent, int brakeType) const;

    /// The LZB state as every kind of configuration (`configTyp`) tells it.
    bool LzbPanelOn() const;
    bool LzbLightB() const;
    bool LzbLightEnde() const;
    int LzbLightG() const; ///< 0 dark, 1 lit, 2 lit inversely
    int LzbLightS() const; ///< 0 dark, 1 lit, 2 lit inversely
    int LzbDistance() const; ///< metres, 9900 when nothing tells it
    int LzbTargetSpeed() const; ///< km/h

    QVector<BrtRow> brtRows;
    QString configName; ///< base name of the file
    QString version;
    QString author;
    bool valid = false; ///< a configuration is loaded; set by the main window
    int display = 0; ///< display family
    int configTyp = 0; ///< variant within the family
    bool isEbula = false; ///< kept for the file, decides nothing
    bool isDDI = false; ///< the loco has an MFA
    bool isDMI = false; ///< the loco has an MTD
    QString locoName; ///< text shown to people

    // The functions, named by their keys in the file; an unassigned one has id -1.
    VControllerBase Hauptschalter;
    VControllerBase Batterieschalter;
    VControllerBase Spannung;
    VControllerBase Oberstrom;
    VControllerBase StromabnehmerStatus;
    VControllerBase EbulaDayNight;
    VControllerBase Fuehrerstand;
    VControllerBase Zugart;
    VControllerBase VBrakeControl;
    VControllerBase VThrottleControl;
    VControllerBase Teilnehmer;
    VControllerBase System_Land;
    VControllerBase Zugsammelschiene;
    VControllerBase Reverser;
    VControllerBase Zugkraftvorwahl;
    VControllerBase Beschleunigungsmesser;
    VControllerBase Batteriespannung;
    VControllerBase Speedometer;
    VControllerBase SpeedometerVsoll;
    VControllerBase Vsollsteller;
    VControllerBase Tuer_LM;
    VControllerBase Tuer_LM_R;
    VControllerBase AFB_Active;
    VControllerBase PZB_Active;
    VControllerBase PZB_State;
    VControllerBase PZB85;
    VControllerBase PZB85_inv;
    VControllerBase PZB70;
    VControllerBase PZB70_inv;
    VControllerBase PZB55;
    VControllerBase PZB55_inv;
    VControllerBase PZB1000Hz;
    VControllerBase PZB1000Hz_inv;
    VControllerBase PZB500Hz;
    VControllerBase PZB500Hz_inv;
    VControllerBase PZBBefehl40;
    VControllerBase PZB_wach;
    VControllerBase PZB_zwang;
    VControllerBase PZB_restriction;
    VControllerBase LZBOnOff;
    VControllerBase LZBPanelStatus;
    VControllerBase LZBDistance;
    VControllerBase LZBDistance_100;
    VControllerBase LZBBalken;
    VControllerBase LZBSpeed;
    VControllerBase LZBTargetSpeed;
    VControllerBase LZBTargetSpeedH;
    VControllerBase LZBTargetSpeedZ;
    VControllerBase LZBTargetSpeedE;
    VControllerBase LZB_ML_B;
    VControllerBase LZB_ML_S;
    VControllerBase LZB_ML_S_inv;
    VControllerBase LZB_ML_G;
    VControllerBase LZB_ML_G_inv;
    VControllerBase LZB_ML_H;
    VControllerBase LZB_ML_H_inv;
    VControllerBase LZB_ML_UE;
    VControllerBase LZB_ML_ENDE;
    VControllerBase Sifa_Active;
    VControllerBase Sifa_Weg;
    VControllerBase Sifa_zwang;
    VControllerBase LocoBrakeCylinderBar;
    VControllerBase TrainBrakeCylinderBar;
    VControllerBase HLL;
    VControllerBase HBL;
    VControllerBase Federspeicherbremse;
    VControllerBase HoheAbbremsung;
    VControllerBase Bremsart;

    /// The records found in the file, in reading order and with repeats. Walk a copy wherever
    /// events may run meanwhile: loading another file empties the list, while the records stay.
    QVector<VControllerBase *> activeControllers;

private:
    void TakeLine(const QString &line);
    void TakeBrakeRow(const QString &text);
    void TakeFunction(const QString &key, const QString &text);
    bool IsLzbConfig() const { return configTyp >= 1 && configTyp <= 6; }
    bool IsLit(const VControllerBase &record) const;
    int LightState(const VControllerBase &plain, const VControllerBase &inverse) const;
};
