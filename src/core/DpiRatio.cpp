#include "DpiRatio.h"

#include "Numbers.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
template <typename Reader>
double OfPrimaryScreen(Reader reader)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? (screen->*reader)() : 0.0;
}
} // namespace

double ScreenDpi()
{
    return OfPrimaryScreen(&QScreen::physicalDotsPerInch);
}

double RenderDpi()
{
    return OfPrimaryScreen(&QScreen::logicalDotsPerInch);
}

double DpiRatio(double screenDpi, double renderDpi)
{
    const double ratio = screenDpi / renderDpi;
    return std::isfinite(ratio) && ratio > 0.0 ? ratio : 1.0;
}

double DpiRatio()
{
    return DpiRatio(ScreenDpi(), RenderDpi());
}

int ScaledPointSize(int pointSize)
{
    return std::max(1, TruncToInt(pointSize * DpiRatio()));
}
