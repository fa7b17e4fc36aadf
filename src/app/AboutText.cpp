#include "AboutText.h"

#include <QtGlobal>

QString AboutText(const QString &version)
{
    return QStringLiteral("Zugblick %1\n\n"
                          "Führerstandsanzeigen neben dem Eisenbahnsimulator.\n\n"
                          "Lizenz: GNU General Public License, Version 3 oder später. Ohne "
                          "Gewähr; der volle Text liegt in der Datei LICENSE bei.\n\n"
                          "Verwendet: Qt %2, QuaZip, zlib, die Schriften DSEG7 und "
                          "Noto Sans Symbols 2 (SIL Open Font License).")
        .arg(version, QString::fromLatin1(qVersion()));
}
