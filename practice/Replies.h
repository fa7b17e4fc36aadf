#pragma once

#include "TrainModel.h"

#include <QString>

namespace practice {

/// Numbers of the bridge's commands.
enum class Command {
    ClientName = 1,
    ServerName = 2,
    ClientId = 3,
    TrainData = 4,
    LocoName = 5,
    ControllerValues = 6,
    ControllerList = 7,
    SetController = 8,
    WriteIntern = 9,
    ReadIntern = 10,
};

/// What the far end of the connection answers, as texts without their frames. Holds what drivers
/// entered on their displays; the train itself is the model's.
class Replies
{
public:
    /// `trainDataFields` is 6, 9 or 17, the length of a train data reply.
    explicit Replies(TrainModel &model, int trainDataFields = 9);

    /// "latitude:longitude:gradient:hour:minute:second", from 9 fields on with
    /// ":speed:value2:value7" (miles per hour), with 17 the eight entered fields behind.
    QString TrainData() const;
    QString LocoName() const;
    QString ControllerList() const; ///< "id::name::min::max::" for each
    QString ControllerValues(const QString &ids) const; ///< "id:value::" for each known id
    QString SetController(const QString &request); ///< of "id:value"; a sentence for a log
    QString WriteIntern(const QString &request); ///< of the eight fields
    QString ReadIntern() const { return intern; }

private:
    TrainModel &model;
    int fields;
    QString intern;
};

} // namespace practice
