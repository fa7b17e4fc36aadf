#include "Resources.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

void InitResources()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(font_ledfont);
    Q_INIT_RESOURCE(font_symbols);
    // "⭢" and "⭠" of the timetables are in this face and in few others. It also holds digits, so
    // it may only stand behind a face that exists: behind an alias such as "Sans Serif" it would
    // come first.
    const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/symbols"));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (!families.isEmpty())
        QFont::insertSubstitutions(QFontInfo(QGuiApplication::font()).family(), families);
}
