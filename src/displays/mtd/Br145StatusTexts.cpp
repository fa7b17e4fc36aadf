#include "Br145StatusTexts.h"

QStringList Br145::StatusTexts()
{
    static const char *const texts[] = {
        "Rauch im Maschinenraum",
        "Bremsausfall",
        "Not - Aus",
        "Master / Slave - Wechsel",
        "GSM - Zugang",
        "SA abgesperrt",
        "SA heben",
        "Druckluft HS zu gering",
        "kein Führerstand besetzt",
        "Fahrschalter nicht in Null",
        "HS - Sperre",
        "HS einschalten",
        "Kippschalter Luftpresser",
        "Stromrichtertest läuft",
        "Fbv abgesperrt",
        "Sifa abgesperrt",
        "FspBr abgesperrt",
        "Bremse geführtes Fahrzeug",
        "Direkte Bremse abgesperrt",
        "Zwangsbremsung",
        "Ausfall Bremsrechner 1",
        "Ausfall Bremsrechner 2",
        "HBU - Umgruppierung läuft",
        "Traktionssperre bei SA - Wechsel",
        "AFB - Zugdaten eingeben",
        "AFB - Fahrschalterquittung",
        "Traktionssperre",
    };
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}
