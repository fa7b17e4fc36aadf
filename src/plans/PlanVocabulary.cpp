#include "PlanVocabulary.h"

#include "TrainTimeTable.h"

const QStringList &PlanNameWords()
{
    static const QStringList words{
        QStringLiteral("Asig"), QStringLiteral("Bksig"), QStringLiteral("Esig"),
        QStringLiteral("Zsig"), QStringLiteral("Sbk"),   QStringLiteral("Vsig"),
        QStringLiteral("Bü"),   QStringLiteral("Ne1"),
    };
    return words;
}

const QVector<PlanWord> &PlanSymbolWords()
{
    static const QVector<PlanWord> words{
        {QStringLiteral("¥"), QStringLiteral("Rückfallebene")},
        {QStringLiteral("⭢"), QStringLiteral("Telefon")},
        {QStringLiteral("⭠"), QStringLiteral("▽")},
        {QStringLiteral("✆"), QStringLiteral("LZB")},
        {QStringLiteral("▽"), QStringLiteral("Tunnel")},
        {QStringLiteral("(▽)"), QString()},
        {QStringLiteral("⊢"), QString()},
        {QStringLiteral("LZB"), QString()},
        {QStringLiteral("‖"), QString()},
    };
    return words;
}

const QVector<PlanWord> &PlanGradientWords()
{
    static const QVector<PlanWord> words{
        {QString(), QStringLiteral("0-10‰")},
        {QStringLiteral("<"), QStringLiteral("10-20‰")},
        {QStringLiteral("<<"), QStringLiteral("mehr als 20‰")},
    };
    return words;
}

const QStringList &StopTypeLabels()
{
    static const QStringList labels =
        QStringLiteral(",Start,Ende,Haltestelle,Zug anhalten, Durchfahrt").split(QLatin1Char(','));
    return labels;
}

OfferedTimes TimesOfStopType(int type)
{
    switch (type) {
    case StopStart:
    case StopPass:
        return {false, true};
    case StopEnd:
        return {true, false};
    case StopStation:
        return {true, true};
    default:
        return {};
    }
}
