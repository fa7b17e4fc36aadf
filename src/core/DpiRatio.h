#pragma once

/// Physical dots per inch of the primary screen; 0 when there is none.
double ScreenDpi();

/// Logical dots per inch of the primary screen; 0 when there is none.
double RenderDpi();

/// Physical over logical dots per inch of the primary screen, by which screens scale their
/// fonts. 1 when the quotient is not finite or not above 0, as on virtual machines whose screens
/// report no size.
double DpiRatio();

/// The same rule for two given values.
double DpiRatio(double screenDpi, double renderDpi);

/// A point size scaled by `DpiRatio()`, truncated, at least 1.
int ScaledPointSize(int pointSize);
