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
    // "⭢" and "⭠" of the timetables are in this face and in few others.
    const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/symbols"));
    const QStringList symbols = QFontDatabase::applicationFontFamilies(id);
    if (symbols.isEmpty())
        return;
    for (const QString &family : {QGuiApplication::font().family(), QStringLiteral("Arial")}) {
        // A family that is only an alias has to name its real face first: the symbol face holds
        // digits too, and they would win over those of the text.
        const QString real = QFontInfo(QFont(family)).family();
        QFont::insertSubstitutions(family, QStringList{real} + symbols);
    }
}
