#include "IndicatorRows.h"

namespace {
const QColor kBlue(0, 54, 253);
const QColor kBlack(Qt::black);
const QColor kWhite(Qt::white);
const QColor kYellow(Qt::yellow);
const QColor kRed(Qt::red);

QString Hz(const char *frequency)
{
    return QLatin1String(frequency) + QStringLiteral("\nHz");
}
} // namespace

bool IndicatorRow::FitsValue(float recordValue) const
{
    switch (when) {
    case When::Any:
        return true;
    case When::Is:
        return recordValue == value;
    case When::IsNot:
        return recordValue != value;
    case When::Above:
        return recordValue > value;
    }
    return false;
}

const QVector<IndicatorRow> &ProtectionRows()
{
    using L = LocoData;
    using P = TouchPanel;
    // clang-format off
    static const QVector<IndicatorRow> rows{
        {&L::LZB_ML_B, When::Is, 0, &P::lm1, {QString(), kBlack, kWhite, 18}},
        {&L::LZB_ML_B, When::IsNot, 0, &P::lm1, {QStringLiteral("B"), kBlue, kWhite, 18}},
        {&L::PZB_Active, When::Any, 0, &P::lm2, {QString(), kBlack, kWhite, 10}},
        {&L::PZB_Active, When::Any, 0, &P::lm3, {QString(), kBlack, kWhite, 10}},
        {&L::PZB_Active, When::Any, 0, &P::lm4, {QString(), kBlack, kWhite, 10}},
        {&L::PZB_Active, When::Any, 0, &P::lm6, {QString(), kBlack, kWhite, 10}},
        {&L::PZB_Active, When::Is, 1, &P::lm2, {QStringLiteral("85"), kBlue, kWhite, 20}},
        {&L::PZB_Active, When::Is, 2, &P::lm3, {QStringLiteral("70"), kBlue, kWhite, 20}},
        {&L::PZB_Active, When::Is, 3, &P::lm4, {QStringLiteral("55"), kBlue, kWhite, 20}},
        // At 0 the light stays until PZB_Active clears it.
        {&L::PZB_State, When::Above, 0, &P::lm6, {QStringLiteral("PZB"), kBlue, kWhite, 18}},
        {&L::PZB85, When::Is, 1, &P::lm2, {QStringLiteral("85"), kBlack, kWhite, 20}},
        {&L::PZB85, When::Is, 2, &P::lm3, {QStringLiteral("70"), kBlack, kWhite, 20}},
        {&L::PZB85, When::Is, 3, &P::lm4, {QStringLiteral("55"), kBlack, kWhite, 20}},
        {&L::PZB70, When::Is, 1, &P::lm3, {Hz("1000"), kBlack, kYellow, 10}},
        {&L::PZB1000Hz, When::Is, 1, &P::lm3, {Hz("1000"), kYellow, kBlack, 10}},
        {&L::PZB1000Hz, When::Is, 2, &P::lm4, {Hz("1000"), kYellow, kBlack, 10}},
        {&L::PZB500Hz, When::Is, 1, &P::lm3, {Hz("500"), kRed, kBlack, 10}},
        {&L::PZB500Hz, When::Is, 2, &P::lm4, {Hz("500"), kRed, kBlack, 10}},
        {&L::PZBBefehl40, When::IsNot, 1, &P::lm5, {QString(), kBlack, kBlack, 10},
         Gate::TrainSpeedWithoutLzb},
        {&L::PZBBefehl40, When::Is, 1, &P::lm5, {QStringLiteral("Befehl\n40"), kWhite, kBlack, 10},
         Gate::TrainSpeedWithoutLzb},
        {&L::LZB_ML_S, When::Is, 1, &P::lm2, {QStringLiteral("S"), kRed, kWhite, 20}},
        {&L::LZB_ML_G, When::Is, 1, &P::lm2, {QStringLiteral("G"), kRed, kWhite, 20}},
        {&L::LZB_ML_ENDE, When::Any, 0, &P::lm5, {QString(), kBlack, kBlack, 14},
         Gate::LzbPanelOn},
        {&L::LZB_ML_ENDE, When::Is, 1, &P::lm5, {QStringLiteral("Ende"), kYellow, kBlack, 14},
         Gate::LzbPanelOn},
        {&L::LZB_ML_ENDE, When::Is, 2, &P::lm5, {QStringLiteral("Ende"), kBlack, kYellow, 14},
         Gate::LzbPanelOn},
    };
    // clang-format on
    return rows;
}

const QVector<IndicatorRow> &VehicleRows()
{
    using L = LocoData;
    using P = TouchPanel;
    const QColor closedDoor(41, 41, 152);
    const QColor supplyOff(180, 180, 180);
    const QColor switchOff(102, 102, 102);
    // clang-format off
    static const QVector<IndicatorRow> rows{
        {&L::Tuer_LM, When::Is, 0, &P::tuer, {QStringLiteral("T"), closedDoor, kWhite, 20}},
        {&L::Tuer_LM, When::Is, 0.5F, &P::tuer, {QString(), kBlack, kWhite, 20}},
        {&L::Tuer_LM, When::Is, 1, &P::tuer, {QStringLiteral("T"), kYellow, kBlack, 20}},
        {&L::Sifa_Weg, When::Is, 0, &P::sifa, {QString(), kBlack, kWhite, 10}},
        {&L::Sifa_Weg, When::Above, 0, &P::sifa, {QStringLiteral("SIFA"), kWhite, kBlack, 15}},
        {&L::Zugsammelschiene, When::Is, 0, &P::lm8,
         {QStringLiteral("ZS\naus"), supplyOff, kBlack, 15}},
        {&L::Zugsammelschiene, When::Above, 0, &P::lm8, {QString(), kBlack, kWhite, 15}},
        {&L::Hauptschalter, When::Is, 0, &P::lm13,
         {QStringLiteral("H\naus"), switchOff, kWhite, 15}},
        {&L::Hauptschalter, When::IsNot, 0, &P::lm13, {QString(), kBlack, kWhite, 15}},
    };
    // clang-format on
    return rows;
}
