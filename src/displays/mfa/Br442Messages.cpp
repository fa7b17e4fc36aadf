#include "Br442Messages.h"

#include "IndicatorRows.h"
#include "LocoData.h"

namespace Br442 {
namespace {
constexpr int kMessagePoints = 12;
const IndicatorLook kNoMessage{QString(), Qt::black, Qt::white, kMessagePoints};

IndicatorLook Alarm(const QString &text)
{
    return {text, Qt::red, Qt::white, kMessagePoints};
}

IndicatorLook Warning(const QString &text)
{
    return {text, Qt::yellow, Qt::black, kMessagePoints};
}

/// Only records that the configuration has lines for call up a message.
bool Applies(const IndicatorRow &row, const LocoData &loco)
{
    const VControllerBase &record = loco.*row.record;
    return record.functionId != -1 && row.FitsValue(record.value);
}

/// The first row counts. The fields are this screen's own.
const QVector<IndicatorRow> &StateRows()
{
    using L = LocoData;
    // clang-format off
    static const QVector<IndicatorRow> rows{
        {&L::Sifa_zwang, When::Is, 2, nullptr, Alarm(QStringLiteral("Sifa - Zwangsbremsung"))},
        {&L::Hauptschalter, When::Is, 0, nullptr, {QStringLiteral("HS"), QColor(102, 102, 102), Qt::white, kMessagePoints}},
        {&L::PZB_restriction, When::Is, 1, nullptr, Warning(QStringLiteral("Geschwindigkeitsüberschreitung"))},
        {&L::PZB_zwang, When::Is, 1, nullptr, Alarm(QStringLiteral("PZB/LZB-Zwangsbremsung"))},
        {&L::LZBPanelStatus, When::IsNot, 0, nullptr, {QStringLiteral("LZB"), QColor(0, 54, 253), Qt::white, kMessagePoints}},
    };
    // clang-format on
    return rows;
}
} // namespace

int SupervisedSpeed(const LocoData &loco)
{
    const float at500 = loco.PZB500Hz.value;
    const float at1000 = loco.PZB1000Hz.value;
    const float at70 = loco.PZB70.value;
    if (at500 > 0.0F)
        return 25;
    if (at500 != 0.0F)
        return 0;
    if (at1000 > 0.0F || at70 == 0.0F)
        return 85;
    return at1000 == 0.0F && at70 > 0.0F ? 45 : 0;
}

IndicatorLook SupervisionMessage(const LocoData &loco)
{
    const VControllerBase &braking = loco.PZB_zwang;
    if (braking.functionId != -1 && braking.value == 0.0F)
        return Alarm(QStringLiteral("PZB- Zwangsbremsung"));
    const int speed = SupervisedSpeed(loco);
    return speed != 0 ? Warning(QStringLiteral("V-Überwachung %1km/h").arg(speed)) : kNoMessage;
}

IndicatorLook StateMessage(const LocoData &loco)
{
    for (const IndicatorRow &row : StateRows()) {
        if (Applies(row, loco))
            return row.look;
    }
    return kNoMessage;
}

} // namespace Br442
