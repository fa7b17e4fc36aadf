#pragma once

#include "MtdRailjetPages.h"

#include <QString>

/// The functions that the driver switches on the function page.
namespace MtdRailjet {

/// What is switched on.
struct Toggles
{
    bool ebOn = false; ///< raised effect of the electric brake
    bool nbbOn = false; ///< emergency brake override
    bool railjetOn = true;
    bool waschOn = false; ///< washing programme
    bool beladeOn = false; ///< loading programme
    bool iBegrOn = false; ///< current limit
};

/// One function, in the order of its key from 1.
struct FunctionRow
{
    bool Toggles::*on;
    const char *captionOff;
    const char *captionOn;
};
constexpr int FunctionCount = 6;
const FunctionRow &FunctionRowOf(int index);

/// What a key tells the driver.
enum class Notice {
    None,
    ConfirmEb, ///< asks for the key "E"
    ConfirmWasch, ///< asks for the key "E"
    OnlyGermany,
};

/// The result of a key on the function page.
struct FunctionPress
{
    Toggles toggles;
    Notice notice = Notice::None;
};
/// `shown` is the text of the page's status label: a pending request is nothing but that text.
FunctionPress OnFunctionKey(const QString &key, const Toggles &toggles, const QString &shown,
                            int land);

/// The text of a notice. That of the raised brake effect stands in the form, and is passed in.
QString NoticeText(Notice notice, const QString &functionHint);

Captions FunctionCaptions(const Toggles &toggles);

/// What stands before the train's number. The washing programme replaces the whole of it.
QString TrainPrefix(const Toggles &toggles);

} // namespace MtdRailjet
