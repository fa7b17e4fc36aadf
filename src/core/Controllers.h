#pragma once

#include <QMetaType>
#include <QString>
#include <QVector>

/// One controller of the simulator and, at the same time, one slot of a loco configuration.
/// A plain value: a copy keeps all fields.
class VControllerBase
{
public:
    VControllerBase() = default;
    VControllerBase(const QString &controllerName, int controllerId, int lowest, int highest);
    VControllerBase(const VControllerBase &) = default;
    VControllerBase(VControllerBase &&) = default;
    VControllerBase &operator=(const VControllerBase &) = default;
    VControllerBase &operator=(VControllerBase &&) = default;
    virtual ~VControllerBase() = default;

    virtual QString GetSetCommand() const;

    /// The nine fields of one configuration line: id, name, value, min, max, std, overMin,
    /// overMax, adjust, joined by ":". A name that holds a ":" does not survive; the form has no
    /// escape.
    QString ToConfigText() const;

    /// Reads the form of `ToConfigText`. With fewer than eight fields nothing changes; without
    /// the ninth, `adjust` stays as it was.
    void ReadConfigText(const QString &text);

    QString name;
    int id = -1; ///< the controller's number in the simulator, -1 when not assigned
    int functionId = -1; ///< 1000 plus the position in the active list of the configuration
    int reserved = 0;
    int min = 0;
    int max = 0;
    float std = 0.0F; ///< standard value
    float value = 0.0F; ///< last value read from the simulator
    int overMin = 0; ///< override of the lower limit
    int overMax = 0; ///< override of the upper limit
    int adjust = 0; ///< 1 switches the recalculation to the override limits on
};

Q_DECLARE_METATYPE(QVector<VControllerBase>)

/// A controller that can address itself with a command text of its own.
class TrainController : public VControllerBase
{
public:
    using VControllerBase::VControllerBase;

    QString GetSetCommand() const override;
    virtual QString GetReadCommand() const;
};
