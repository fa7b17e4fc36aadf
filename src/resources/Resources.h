#pragma once

/// Makes the compiled-in art and fonts known (":/icons/...", ":/fonts/...") and registers the
/// symbol face as a fallback for the line symbols that few system faces hold. Call it once the
/// application object exists; further calls do nothing.
void InitResources();
