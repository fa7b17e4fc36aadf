#include "MtdRailjetFunctions.h"

namespace MtdRailjet {
namespace {
constexpr FunctionRow kRows[FunctionCount] = {
    {&Toggles::eb, "EB\nein", "EB\naus"},
    {&Toggles::nbb, "NBB\nein", "NBB\naus"},
    {&Toggles::railjet, "Railjet\nein", "Railjet\naus"},
    {&Toggles::wasch, "Wasch\nein", "Wasch\naus"},
    {&Toggles::belade, "Belade\nein", "Belade\naus"},
    {&Toggles::iBegr, "I-Begr.\nein", "I-Begr.\naus"},
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
        toggles.eb = true;
    else if (shown.startsWith(QLatin1String("Waschprogramm")))
        toggles.wasch = true;
}

Notice LimitCurrent(Toggles &toggles, int land)
{
    if (land == Germany) {
        Flip(toggles.iBegr);
        return Notice::None;
    }
    toggles.iBegr = false;
    return Notice::OnlyGermany;
}

Notice RequestWash(Toggles &toggles)
{
    const Notice notice = Request(toggles.wasch, Notice::ConfirmWasch);
    if (notice != Notice::None)
        toggles.iBegr = false;
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
        press.notice = Request(now.eb, Notice::ConfirmEb);
    else if (key == QLatin1String("2"))
        Flip(now.nbb);
    else if (key == QLatin1String("3"))
        Flip(now.railjet);
    else if (key == QLatin1String("4"))
        press.notice = RequestWash(now);
    else if (key == QLatin1String("5"))
        Flip(now.belade);
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
    if (toggles.wasch)
        return QStringLiteral("Waschfahrt+");
    QString prefix;
    if (toggles.eb)
        prefix = QStringLiteral("EB+");
    if (toggles.railjet)
        prefix += QStringLiteral("Railjet+");
    return prefix;
}

} // namespace MtdRailjet
