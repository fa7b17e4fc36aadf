#include "MtdRailjetFunctions.h"

namespace MtdRailjet {
namespace {
constexpr FunctionRow kRows[FunctionCount] = {
    {&Toggles::ebOn, "EB\nein", "EB\naus"},
    {&Toggles::nbbOn, "NBB\nein", "NBB\naus"},
    {&Toggles::railjetOn, "Railjet\nein", "Railjet\naus"},
    {&Toggles::waschOn, "Wasch\nein", "Wasch\naus"},
    {&Toggles::beladeOn, "Belade\nein", "Belade\naus"},
    {&Toggles::iBegrOn, "I-Begr.\nein", "I-Begr.\naus"},
};

/// Switches at once, where nothing is to be confirmed.
void Flip(bool &toggle)
{
    toggle = !toggle;
}

/// Off at once, on only after the key "E".
Notice Request(bool &toggle, Notice request)
{
    if (!toggle)
        return request;
    toggle = false;
    return Notice::None;
}

void Confirm(Toggles &toggles, const QString &shown)
{
    if (shown.startsWith(QLatin1String("E-Bremse")))
        toggles.ebOn = true;
    else if (shown.startsWith(QLatin1String("Waschprogramm")))
        toggles.waschOn = true;
}

Notice LimitCurrent(Toggles &toggles, int land)
{
    if (land == Germany) {
        Flip(toggles.iBegrOn);
        return Notice::None;
    }
    toggles.iBegrOn = false;
    return Notice::OnlyGermany;
}

Notice RequestWash(Toggles &toggles)
{
    const Notice notice = Request(toggles.waschOn, Notice::ConfirmWasch);
    if (notice != Notice::None)
        toggles.iBegrOn = false;
    return notice;
}
} // namespace

const FunctionRow &FunctionRowOf(int index)
{
    return kRows[index];
}

FunctionPress OnFunctionKey(const QString &key, const Toggles &toggles, const QString &shown,
                            int land)
{
    FunctionPress press{toggles};
    Toggles &now = press.toggles;
    if (key == QLatin1String("1"))
        press.notice = Request(now.ebOn, Notice::ConfirmEb);
    else if (key == QLatin1String("2"))
        Flip(now.nbbOn);
    else if (key == QLatin1String("3"))
        Flip(now.railjetOn);
    else if (key == QLatin1String("4"))
        press.notice = RequestWash(now);
    else if (key == QLatin1String("5"))
        Flip(now.beladeOn);
    else if (key == QLatin1String("6"))
        press.notice = LimitCurrent(now, land);
    else if (key == QLatin1String("E"))
        Confirm(now, shown);
    return press;
}

QString NoticeText(Notice notice, const QString &functionHint)
{
    switch (notice) {
    case Notice::ConfirmEb:
        return functionHint;
    case Notice::ConfirmWasch:
        return QStringLiteral("Waschprogramm bitte mit Taste \"E\" bestätigen.");
    case Notice::OnlyGermany:
        return QStringLiteral("Diese Funktion wird derzeit nur im Netz der DB verwendet.");
    case Notice::None:
        break;
    }
    return {};
}

Captions FunctionCaptions(const Toggles &toggles)
{
    Captions captions;
    for (int index = 0; index < FunctionCount; ++index) {
        const FunctionRow &row = kRows[index];
        captions[index] = QString::fromUtf8(toggles.*row.on ? row.captionOn : row.captionOff);
    }
    captions[8] = QStringLiteral("Ober-\nstrom");
    captions[9] = QStringLiteral("G");
    return captions;
}

QString TrainPrefix(const Toggles &toggles)
{
    if (toggles.waschOn)
        return QStringLiteral("Waschfahrt+");
    QString prefix;
    if (toggles.ebOn)
        prefix = QStringLiteral("EB+");
    if (toggles.railjetOn)
        prefix += QStringLiteral("Railjet+");
    return prefix;
}

} // namespace MtdRailjet
