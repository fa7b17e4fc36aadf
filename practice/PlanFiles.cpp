#include "PlanFiles.h"

#include "Numbers.h"

#include <QTime>

#include <algorithm>
#include <cmath>

namespace practice {
namespace {

/// A row of a plan: a station, a signal or a change of speed.
struct PlanPoint
{
    double at = 0.0; ///< metres
    QString name;
    QString symbol;
    int station = -1; ///< position in the stations of the line, -1 for another point
};

QVector<PlanPoint> PlanPoints(const Line &line)
{
    const auto symbolAt = [&line](double at) {
        return line.lzb.Holds(at) ? QStringLiteral("LZB") : QString();
    };
    QVector<PlanPoint> points;
    for (const Station &station : line.Stations())
        points.append({station.at, station.name, QString::fromUtf8("⭢"), points.size()});
    for (const Signal &signal : line.Signals())
        points.append({signal.at, signal.kind, symbolAt(signal.at)});
    for (const SpeedStep &step : line.SpeedSteps())
        points.append({step.at, QString(), symbolAt(step.at)});
    std::stable_sort(points.begin(), points.end(),
                     [](const PlanPoint &a, const PlanPoint &b) { return a.at < b.at; });
    // A change of speed at a station or signal is told in that row.
    const auto last =
        std::unique(points.begin(), points.end(), [](const PlanPoint &a, const PlanPoint &b) {
            return std::abs(a.at - b.at) < 0.5 && b.name.isEmpty();
        });
    points.erase(last, points.end());
    return points;
}

QString GradientMark(double gradient)
{
    const double perMille = std::abs(gradient) * 1000.0;
    return perMille > 20.0 ? QStringLiteral("<<")
        : perMille >= 10.0 ? QStringLiteral("<")
                           : QString();
}

QString Mark(double metres, bool inMiles)
{
    return ToText(metres / (inMiles ? 1609.344 : 1000.0));
}

QString Row(const QStringList &columns)
{
    return columns.join(QLatin1Char(';')) + QLatin1Char('\n');
}

QStringList FirstColumns(int index, const PlanPoint &point, const Line &line, bool inMiles)
{
    const TrackPosition position = line.PositionAt(point.at);
    return {QString::number(index),
            ToText(position.latitude),
            ToText(position.longitude),
            Mark(point.at, inMiles),
            QString::number(line.SpeedLimitAt(point.at)),
            point.name};
}

int SecondOfDay(const QString &text)
{
    const QTime time = QTime::fromString(text, QStringLiteral("HH:mm:ss"));
    return time.isValid() ? time.msecsSinceStartOfDay() / 1000 : -1;
}

void TakeRow(const QStringList &columns, const Line &line, QVector<ScheduledStop> &stops)
{
    if (columns.size() < 10)
        return;
    const int kind = ToInt(columns[8]);
    const int station = line.FindStation(columns[5]);
    const bool halts = kind >= int(StopKind::Start) && kind <= int(StopKind::Stop);
    if (station >= 0 && (halts || kind == int(StopKind::Pass))) {
        stops.append({station, SecondOfDay(columns[6]), SecondOfDay(columns[7]),
                      static_cast<StopKind>(kind)});
    }
}

bool CanBeRun(const QVector<ScheduledStop> &stops)
{
    if (stops.size() < 2 || stops.first().kind != StopKind::Start || stops.first().departure < 0
        || stops.last().kind != StopKind::End)
        return false;
    return std::adjacent_find(stops.begin(), stops.end(),
                              [](const ScheduledStop &a, const ScheduledStop &b) {
                                  return a.station >= b.station || b.kind == StopKind::Start
                                      || a.kind == StopKind::End;
                              })
        == stops.end();
}

} // namespace

QString RoutePlanName(bool inMiles)
{
    return inMiles ? QStringLiteral("Koeln-Koblenz miles") : QStringLiteral("Koeln-Koblenz");
}

QByteArray RoutePlanText(const Line &line, bool inMiles)
{
    QString text = QString::fromUtf8("Name=Köln-Koblenz%1\nNickname=Zugblick\n"
                                     "CreateDate=01.03.2024\nLastUpdateDate=01.03.2024\n"
                                     "ExpiryDate=31.12.2034\nVersion=1\nUID=%2\nFileType=1\n"
                                     "Unit=%3\n")
                       .arg(inMiles ? QStringLiteral(" (miles)") : QString(),
                            inMiles ? QStringLiteral("{6f1d0b52-7a3e-4c0e-9f59-0d3c6b1f2a02}")
                                    : QStringLiteral("{6f1d0b52-7a3e-4c0e-9f59-0d3c6b1f2a01}"),
                            QString::number(inMiles));
    int index = 0;
    for (const PlanPoint &point : PlanPoints(line)) {
        const TrackPosition position = line.PositionAt(point.at);
        text += Row(FirstColumns(index++, point, line, inMiles)
                    << point.symbol << ToText(position.elevation) << ToText(position.gradient)
                    << GradientMark(position.gradient));
    }
    return text.toUtf8();
}

QByteArray TimeTableText(const Line &line, const Schedule &schedule)
{
    QString description = schedule.description;
    description.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    QString text = QString::fromUtf8("Name=Köln-Koblenz\nNickname=Zugblick\nScheduleID=%1\n"
                                     "TrainNumber=%2\nTrainWeight=%3\nTrainLength=%4\n")
                       .arg(schedule.name, schedule.trainNumber, QString::number(schedule.weight),
                            QString::number(schedule.length));
    text += QStringLiteral("Description=%1\nCreateDate=01.03.2024\nLastUpdateDate=01.03.2024\n"
                           "ExpiryDate=31.12.2034\nScenario=Practice line\nVersion=1\n")
                .arg(description);
    text +=
        QStringLiteral("UID=%1\nVmax=%2\nFileType=2\nUnit=%3\n")
            .arg(schedule.uid, QString::number(schedule.vmax), QString::number(schedule.inMiles));
    int index = 0;
    for (const PlanPoint &point : PlanPoints(line)) {
        const auto stop = std::find_if(
            schedule.stops.cbegin(), schedule.stops.cend(), [&point](const ScheduledStop &each) {
                return point.station >= 0 && each.station == point.station;
            });
        const ScheduledStop times = stop == schedule.stops.cend() ? ScheduledStop() : *stop;
        text += Row(FirstColumns(index++, point, line, schedule.inMiles)
                    << ClockText(times.arrival) << ClockText(times.departure)
                    << QString::number(static_cast<int>(times.kind)) << QString() << point.symbol
                    << GradientMark(line.PositionAt(point.at).gradient));
    }
    return text.toUtf8();
}

bool ReadTimeTableText(const QByteArray &text, const Line &line, Schedule &schedule)
{
    constexpr int kFastest = 300; // for a file that gives the train no speed
    schedule = Schedule();
    const QStringList lines =
        QString::fromUtf8(text).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
    for (const QString &each : lines) {
        const QString value = each.section(QLatin1Char('='), 1);
        if (each.startsWith(QLatin1String("ScheduleID=")))
            schedule.name = value;
        else if (each.startsWith(QLatin1String("TrainNumber=")))
            schedule.trainNumber = value;
        else if (each.startsWith(QLatin1String("Vmax=")))
            schedule.vmax = ToInt(value);
        else
            TakeRow(each.split(QLatin1Char(';')), line, schedule.stops);
    }
    if (schedule.vmax <= 0)
        schedule.vmax = kFastest;
    return CanBeRun(schedule.stops);
}

} // namespace practice
