#include "LedFont.h"

#include <QFontDatabase>
#include <QHash>

namespace {
/// Family of a face in a file, empty when it cannot be loaded. Each face is loaded once: a screen
/// holds several instruments, and the font database keeps every copy that it is given.
QString FamilyOf(const QString &file)
{
    static QHash<QString, QString> known;
    QString &family = known[file];
    if (family.isEmpty()) {
        const int id = QFontDatabase::addApplicationFont(file);
        family = QFontDatabase::applicationFontFamilies(id).value(0);
    }
    return family;
}
} // namespace

QFont LedFont(int pixelSize, const QString &file)
{
    const QString family = FamilyOf(file);
    if (family.isEmpty())
        return {};
    QFont font(family);
    font.setPixelSize(pixelSize);
    return font;
}
