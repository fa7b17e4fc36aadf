#pragma once

#include <QString>

/// The style sheet of the pages that lie over the EBuLa, by day or by night, in the colours of
/// the timetable below them.
QString EbulaPageStyle(bool dayMode);
