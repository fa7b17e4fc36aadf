#pragma once

#include <QByteArray>
#include <QMutex>
#include <QSettings>
#include <QString>

/// The persistent options in `kabdata.ini`, one accessor pair a key. A missing or unreadable key
/// yields its default. The accessors may be called from the worker thread too.
class KabdataSettings
{
public:
    /// Opens `kabdata.ini` in the standard writable data location of the application; the
    /// application name must be set before.
    KabdataSettings();
    /// Opens the given file.
    explicit KabdataSettings(const QString &path);

    QString FileName() const;
    void Sync();

    bool CheckVersion() const { return GetBool("main/checkversion", true); }
    void SetCheckVersion(bool on) { Set("main/checkversion", on); }
    QByteArray MainWindowGeometry() const { return GetBytes("main/windowgeometry"); }
    void SetMainWindowGeometry(const QByteArray &bytes) { Set("main/windowgeometry", bytes); }
    QByteArray MainWindowState() const { return GetBytes("main/windowstate"); }
    void SetMainWindowState(const QByteArray &bytes) { Set("main/windowstate", bytes); }
    QString Nickname() const { return GetText("main/nickname", QString()); }
    void SetNickname(const QString &name) { Set("main/nickname", name); }

    bool Topmost() const { return GetBool("displays/topmost", false); }
    void SetTopmost(bool on) { Set("displays/topmost", on); }
    bool Startup() const { return GetBool("displays/startup", false); }
    void SetStartup(bool on) { Set("displays/startup", on); }

    QString EthernetIp() const { return GetText("ethernet/ip", QStringLiteral("127.0.0.1")); }
    void SetEthernetIp(const QString &host) { Set("ethernet/ip", host); }
    unsigned int EthernetPort() const;
    void SetEthernetPort(unsigned int port) { Set("ethernet/port", port); }

    /// 0 RailDriver library, 1 Kablink bridge, 2 "Zusi-Server".
    int InterfaceType() const { return GetInt("interface/type", 0); }
    void SetInterfaceType(int type) { Set("interface/type", type); }
    /// Polling interval in ms; a stored value below 1 counts as 500, so that no timer spins.
    int UpdateInterval() const;
    void SetUpdateInterval(int ms) { Set("interface/updateinterval", ms); }

    bool LogAsFile() const { return GetBool("logging/asfile", false); }
    void SetLogAsFile(bool on) { Set("logging/asfile", on); }
    int LogViewLevel() const { return GetInt("logging/level", 1); }
    void SetLogViewLevel(int level) { Set("logging/level", level); }

    /// The simulator's folder.
    QString SimulatorPath() const { return GetText("paths/ts2017", QString()); }
    void SetSimulatorPath(const QString &path) { Set("paths/ts2017", path); }
    QString WorkFolder() const;
    void SetWorkFolder(const QString &path) { Set("paths/workfolder", path); }

    bool CorrectionTime() const { return GetBool("timetable/correctiontime", true); }
    void SetCorrectionTime(bool on) { Set("timetable/correctiontime", on); }
    /// Metres around a plan row that count as being there.
    int EbulaTolerance() const { return GetInt("ebula/tolerance", 50); }
    void SetEbulaTolerance(int metres) { Set("ebula/tolerance", metres); }

    bool SendData() const { return GetBool("user/senddata", false); }
    void SetSendData(bool on) { Set("user/senddata", on); }
    QString UserName() const { return GetText("user/name", QString()); }
    void SetUserName(const QString &name) { Set("user/name", name); }
    QString UserHash() const { return GetText("user/hash", QString()); }
    void SetUserHash(const QString &hash) { Set("user/hash", hash); }
    /// "1" enables publishing; the result of the login check.
    QString UserAllowed() const { return GetText("user/allowed", QStringLiteral("0")); }
    void SetUserAllowed(const QString &allowed) { Set("user/allowed", allowed); }

    /// Base address of all server paths; empty means that nothing is requested.
    QString UrlHost() const;
    void SetUrlHost(const QString &host) { Set("url/host", host); }

    /// Geometry of a display window, one key a window title.
    QByteArray WindowGeometry(const QString &windowTitle) const;
    void SetWindowGeometry(const QString &windowTitle, const QByteArray &geometry);

    /// The live polling interval in ms, 0 before the first finished job. In memory only; written
    /// and read on the GUI thread.
    int currentInterval = 0;

private:
    QVariant Get(const QString &key) const;
    void Set(const QString &key, const QVariant &value);
    bool GetBool(const char *key, bool fallback) const;
    int GetInt(const char *key, int fallback) const;
    QString GetText(const char *key, const QString &fallback) const;
    QByteArray GetBytes(const char *key) const;
    void Set(const char *key, const QVariant &value) { Set(QLatin1String(key), value); }

    mutable QMutex mutex;
    QSettings store;
};
