#pragma once

#include <QString>

/// The texts of the North American screen: value in, text out.

/// The throttle notch "1" to "8", or "IDLE". A lever at exactly 0.2 reads "IDLE".
QString ThrottleText(double value);

/// "REV" for -1, "FWD" for 1, "CNTR" for anything else.
QString ReverserText(int value);

/// A whole number; halves go up on both sides of 0.
QString WholeText(double value);

/// The gradient times 1000 with two decimals and a "%".
QString GradeText(double value);
