#pragma once

#include <QString>

/// How far the LZB indicators light up for a target distance in metres. Both scales run from 0 at
/// the foot to 4000 at the top, finer near the foot. The two bars differ on their first 100
/// metres, as in the cabs that they stand for: neither is derived from the other.

/// Number n that the LED bar compares its block indices with: 25 metres a block, starting at 1.
int LedBarCount(int distance);

/// Whether block `i` of the 38, counted from the top, is lit for that n.
bool IsLedBlockLit(int i, int count);

/// Height of the slim bar in blocks: 20 metres a block, starting at 0. Not rounded.
double SlimBarBlocks(int distance);

/// Whole hundreds of metres, halves up.
int RoundToHundreds(int distance);

/// Digits above the LED bar, at most 9900; empty up to 4000 m, where the bar itself tells.
QString LedBarDigits(int distance);

/// Digits above the slim bar; `permanent` shows them below 4000 m too.
QString SlimBarDigits(int distance, bool permanent);
