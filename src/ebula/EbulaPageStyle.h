#pragma once

#include <QString>

class QFont;

/// The style sheet of the pages that lie over the EBuLa, by day or by night, in the colours and
/// the font (sized in pixels) of the timetable below them. The font stands in the sheet because a
/// widget whose sheet is changed would fall back to the program's font.
QString EbulaPageStyle(bool dayMode, const QFont &font);
