#include "Replies.h"

#include "Numbers.h"

#include <QStringList>

namespace practice {
namespace {

constexpr int kInternFields = 8;

QString Id(int number)
{
    return QString::number(number);
}

} // namespace

Replies::Replies(TrainModel &itsModel, int trainDataFields)
    : model(itsModel), fields(trainDataFields), intern(QStringLiteral("::0:9:169:300:200:200"))
{
}

QString Replies::TrainData() const
{
    const TrackPosition at = model.TheLine().PositionAt(model.Position());
    const int clock = model.Clock();
    QStringList parts{QString::number(at.latitude, 'f', 7),
                      QString::number(at.longitude, 'f', 7),
                      QString::number(at.gradient, 'f', 6),
                      Id(clock / 3600),
                      Id(clock / 60 % 60),
                      Id(clock % 60)};
    if (fields >= 9)
        parts << QString::number(model.TheCab().Mph(), 'f', 2) << Id(0) << Id(0);
    if (fields >= 17)
        parts << intern;
    return parts.join(QLatin1Char(':'));
}

QString Replies::LocoName() const
{
    return QString::fromUtf8(model.Loco().name);
}

QString Replies::ControllerList() const
{
    QString text;
    int id = 0;
    for (const LocoController &each : model.Controllers()) {
        text +=
            QStringLiteral("%1::%2::%3::%4::").arg(Id(id++), each.name, Id(each.min), Id(each.max));
    }
    return text;
}

QString Replies::ControllerValues(const QString &ids) const
{
    QString text;
    for (const QString &part : ids.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int id = part.toInt(&ok);
        if (ok && id >= 0 && id < model.Controllers().size())
            text += QStringLiteral("%1:%2::").arg(Id(id), ToText(model.ControllerValue(id)));
    }
    return text;
}

QString Replies::SetController(const QString &request)
{
    const QStringList parts = request.split(QLatin1Char(':'));
    bool isNumber = false;
    const int id = parts.first().toInt(&isNumber);
    if (!isNumber || parts.size() != 2)
        return QStringLiteral("not understood: %1").arg(request);
    switch (model.WriteController(id, static_cast<double>(ToFloat(parts[1])))) {
    case TrainModel::WriteResult::NoController:
        return QStringLiteral("no controller %1").arg(Id(id));
    case TrainModel::WriteResult::Indicator:
        return QStringLiteral("%1 only indicates").arg(model.Controllers()[id].name);
    case TrainModel::WriteResult::Done:
        break;
    }
    return QStringLiteral("%1 set to %2")
        .arg(model.Controllers()[id].name, ToText(model.ControllerValue(id)));
}

QString Replies::WriteIntern(const QString &request)
{
    if (request.split(QLatin1Char(':')).size() != kInternFields)
        return QStringLiteral("not understood: %1").arg(request);
    intern = request;
    return QStringLiteral("OK");
}

} // namespace practice
