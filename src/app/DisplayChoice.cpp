#include "DisplayChoice.h"

#include <algorithm>
#include <iterator>

namespace {
struct Row
{
    int display;
    Screen screen;
};

// The numbers 1, 2 and 4 mean the BR 101 for a loco of that name.
constexpr Row kMfa[] = {
    {1, Screen::MfaBr145},  {2, Screen::MfaBr145},   {3, Screen::MfaBr442},
    {4, Screen::MfaBr145},  {5, Screen::MfaRailjet}, {8, Screen::MfaOebb8090},
    {9, Screen::MfaBr442},  {10, Screen::MfaBr442},  {11, Screen::MfaBr442},
    {12, Screen::MfaBr155}, {13, Screen::MfaBr155},  {100, Screen::MainUs},
};

constexpr Row kMtd[] = {
    {1, Screen::MtdBr145},   {2, Screen::MtdBr145},   {3, Screen::MtdBr145},
    {4, Screen::MtdRailjet}, {5, Screen::MtdRailjet}, {8, Screen::MtdRailjet},
    {9, Screen::MtdBr145},   {10, Screen::MtdBr145},  {11, Screen::MtdBr145},
};

template <std::size_t Size>
Screen Find(const Row (&rows)[Size], int display)
{
    const auto *found = std::find_if(std::begin(rows), std::end(rows),
                                     [display](const Row &row) { return row.display == display; });
    return found != std::end(rows) ? found->screen : Screen::None;
}
} // namespace

bool IsBr101(const QString &loco)
{
    for (const char *name : {"BR 101", "BR101", "vR_Apmbzf"}) {
        if (loco.contains(QLatin1String(name), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

Screen MfaScreen(int display, const QString &loco)
{
    const Screen screen = Find(kMfa, display);
    return screen == Screen::MfaBr145 && IsBr101(loco) ? Screen::MfaBr101 : screen;
}

Screen MtdScreen(int display)
{
    return Find(kMtd, display);
}
