#include "Resources.h"

#include <QFont>
#include <QFontDatabase>
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
    // "⭢" and "⭠" of the timetables are in this face and in few others.
    const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/symbols"));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (!families.isEmpty())
        QFont::insertSubstitutions(QGuiApplication::font().family(), families);
}
