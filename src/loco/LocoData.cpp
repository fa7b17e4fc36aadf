#include "LocoData.h"

#include "LocoFunctions.h"
#include "Log.h"
#include "Numbers.h"

#include <QFile>
#include <QSaveFile>
#include <QTextStream>

namespace {
const char *const kFileComment =
    "#ConfigName=CtrlID:CtrlName:CtrlValue:CtrlMin:CtrlMax:CtrlSTD:CtrlOverMin:CtrolOverMax";
const char *const kLocoName = "Loconame";
const char *const kBrakeRow = "BRT";

struct TextKey
{
    const char *key;
    QString LocoData::*field;
};
struct NumberKey
{
    const char *key;
    int LocoData::*field;
};
struct FlagKey
{
    const char *key;
    bool LocoData::*field;
};

const TextKey kTexts[] = {{"Version", &LocoData::version}, {"Autor", &LocoData::author}};
const NumberKey kNumbers[] = {{"Display", &LocoData::display}, {"ConfigTyp", &LocoData::configTyp}};
const FlagKey kFlags[] = {
    {"IsEbula", &LocoData::isEbula}, {"IsDMI", &LocoData::isDMI}, {"IsDDI", &LocoData::isDDI}};
} // namespace

void LocoData::Reset()
{
    for (const LocoFunction &function : LocoFunctions())
        this->*function.record = VControllerBase();
    for (const TextKey &each : kTexts)
        (this->*each.field).clear();
    for (const NumberKey &each : kNumbers)
        this->*each.field = 0;
    for (const FlagKey &each : kFlags)
        this->*each.field = false;
    activeControllers.clear();
    brtRows.clear();
    configName.clear();
    locoName.clear();
    valid = false;
}

bool LocoData::ReadFile(const QString &path)
{
    Reset();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    Read(file);
    return true;
}

void LocoData::Read(QIODevice &device)
{
    Reset();
    QTextStream stream(&device);
    stream.setCodec("UTF-8");
    QString line;
    while (stream.readLineInto(&line))
        TakeLine(line);
}

void LocoData::TakeLine(const QString &line)
{
    const int equals = line.indexOf(QLatin1Char('='));
    if (equals < 0)
        return;
    const QString key = line.left(equals);
    const QString text = line.mid(equals + 1);
    if (key == QLatin1String(kLocoName))
        locoName = text; // alone among the texts, it is cleared by an empty one
    if (key.startsWith(QLatin1String(kBrakeRow)))
        TakeBrakeRow(text);
    for (const FlagKey &each : kFlags) {
        if (key == QLatin1String(each.key))
            this->*each.field = ToInt(text) != 0;
    }
    if (text.isEmpty())
        return;
    for (const TextKey &each : kTexts) {
        if (key == QLatin1String(each.key))
            this->*each.field = text;
    }
    for (const NumberKey &each : kNumbers) {
        if (key == QLatin1String(each.key))
            this->*each.field = ToInt(text);
    }
    TakeFunction(key, text);
}

void LocoData::TakeFunction(const QString &key, const QString &text)
{
    const LocoFunction *function = FindLocoFunction(key);
    if (function == nullptr)
        return;
    VControllerBase &record = this->*function->record;
    record.ReadConfigText(text);
    for (int each = 0; each < function->tries; ++each) {
        record.functionId = 1000 + activeControllers.size();
        activeControllers.append(&record);
    }
}

void LocoData::TakeBrakeRow(const QString &text)
{
    const QStringList fields = text.split(QLatin1Char(':'));
    BrtRow row;
    int *const numbers[] = {&row.from, &row.to, &row.setValue};
    constexpr int kNumberCount = 3;
    for (int at = 0; at < fields.size(); ++at) {
        if (at < kNumberCount)
            *numbers[at] = ToInt(fields[at]);
        else
            row.columns.append(ToInt(fields[at]));
    }
    brtRows.append(row);
}

bool LocoData::WriteFile(const QString &path, QString *error) const
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Text) && Write(file) && file.commit())
        return true;
    qCWarning(lcLoco).noquote().nospace()
        << "LocoData::WriteFile can not write file " << path << "\n"
        << file.errorString();
    if (error != nullptr)
        *error = file.errorString();
    return false;
}

bool LocoData::Write(QIODevice &device) const
{
    QTextStream stream(&device);
    stream.setCodec("UTF-8");
    stream << kFileComment << '\n' << kLocoName << '=' << locoName << '\n';
    for (const TextKey &each : kTexts)
        stream << each.key << '=' << this->*each.field << '\n';
    for (const NumberKey &each : kNumbers)
        stream << each.key << '=' << this->*each.field << '\n';
    for (const FlagKey &each : kFlags)
        stream << each.key << '=' << (this->*each.field ? 1 : 0) << '\n';
    for (const LocoFunction &function : LocoFunctions())
        stream << function.key << '=' << (this->*function.record).ToConfigText() << '\n';
    for (int at = 0; at < brtRows.size(); ++at) {
        const BrtRow &row = brtRows[at];
        stream << kBrakeRow << at << '=' << row.from << ':' << row.to << ':' << row.setValue;
        for (const int column : row.columns)
            stream << ':' << column;
        stream << '\n';
    }
    stream.flush();
    return stream.status() == QTextStream::Ok;
}

QString LocoData::BuildIdList() const
{
    QStringList ids;
    for (const VControllerBase *record : activeControllers) {
        if (record->id != -1)
            ids.append(QString::number(record->id));
    }
    return ids.join(QLatin1Char(':'));
}

void LocoData::UpdateValues(const QVector<VControllerBase> &controllers)
{
    for (const VControllerBase &given : controllers) {
        for (VControllerBase *record : activeControllers) {
            if (record->id == given.id)
                record->value = given.value;
        }
    }
}

QVector<BrtRow> LocoData::GetBrhRows(int brakeType) const
{
    QVector<BrtRow> rows;
    if (brakeType < 1)
        return rows;
    for (BrtRow row : brtRows) {
        row.vmax = row.columns.value(brakeType - 1, 0);
        if (row.vmax != 0)
            rows.append(row);
    }
    return rows;
}

int LocoData::GetBrhVmax(int brakePercent, int brakeType) const
{
    int vmax = -1;
    for (const BrtRow &row : GetBrhRows(brakeType)) {
        if (row.from <= brakePercent && brakePercent <= row.to)
            vmax = row.vmax;
    }
    return vmax;
}
