#pragma once

#include "OsmData.h"

class QIODevice;

/// Reads nodes and ways of OpenStreetMap XML in one pass, without holding the text. The file is
/// taken in the system's codec, and its lines are joined with nothing between them. A malformed
/// or truncated document ends the reading, and what was read so far is the result, a way that was
/// cut off included.
OsmNetwork ReadOsm(QIODevice &device);
