#include "NextMark.h"
#include "PlanClipboard.h"
#include "PlanMenus.h"
#include "PlanRows.h"
#include "TestMain.h"
#include "TrainData.h"

Q_DECLARE_METATYPE(CellKind)
Q_DECLARE_METATYPE(CellMenu)

namespace {
PlanRow RowOfTexts(const QStringList &texts)
{
    PlanRow row;
    for (const QString &text : texts) {
        row.append(PlanCell());
        row.last().text = text;
    }
    return row;
}

QStringList TextsOf(const PlanRow &row)
{
    QStringList texts;
    for (const PlanCell &cell : row)
        texts.append(cell.input.isNull() ? cell.text : '<' + cell.input + '>');
    return texts;
}

/// "-" for no edit.
QString InputWord(const PlanCell &cell)
{
    return cell.input.isNull() ? QStringLiteral("-") : cell.input;
}

PlanCell CellWithInput(const QString &word)
{
    PlanCell cell;
    if (word != "-")
        cell.input = word;
    return cell;
}
} // namespace

class TestPlanRows : public QObject
{
    Q_OBJECT

private slots:
    void theMarkOfANewRowFollowsTheLastTwo_data();
    void theMarkOfANewRowFollowsTheLastTwo();
    void aWayInMilesIsShorter();
    void numbersAreReadFromTheFrontOfACell_data();
    void numbersAreReadFromTheFrontOfACell();
    void pointsOfALineAreShown();
    void pointsOfATimetableAreShown();
    void aTimetableRowComesBackAsItWas();
    void hostileCellsGiveEmptyValues();
    void unknownStopTypesAreShownAsNone_data();
    void unknownStopTypesAreShownAsNone();
    void speedsAreCarriedOverBeforeTheTurn();
    void aStopTypeSettlesTheTimes_data();
    void aStopTypeSettlesTheTimes();
    void typedTextsFitTheirColumn_data();
    void typedTextsFitTheirColumn();
    void tabbedTextIsCutIntoCells_data();
    void tabbedTextIsCutIntoCells();
    void cellMenusOfferTheirWords_data();
    void cellMenusOfferTheirWords();
    void timeMenusOfferBothClocks_data();
    void timeMenusOfferBothClocks();
};

void TestPlanRows::theMarkOfANewRowFollowsTheLastTwo_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("last");
    QTest::addColumn<double>("way");
    QTest::addColumn<QString>("mark"); // with one decimal
    QTest::newRow("rising marks count up") << "100.0"
                                           << "100.5" << 0.3 << "100.8";
    QTest::newRow("falling marks count down") << "100.5"
                                              << "100.0" << 0.3 << "99.7";
    QTest::newRow("equal marks have no direction") << "100"
                                                   << "100" << 0.3 << "0.0";
    QTest::newRow("a mark of 0 breaks the chain") << "1"
                                                  << "0" << 0.3 << "0.0";
    QTest::newRow("from 0 the line begins") << "0"
                                            << "0.4" << 0.3 << "0.7";
    QTest::newRow("the first row has none before") << ""
                                                   << "100.5" << 0.3 << "0.0";
    QTest::newRow("an empty last mark") << "100"
                                        << "" << 0.3 << "0.0";
    QTest::newRow("no mark counts as its number") << "120.0"
                                                  << "-99.9" << 0.3 << "-100.2";
    QTest::newRow("behind no mark it counts up") << "-99.9"
                                                 << "120" << 0.3 << "120.3";
    QTest::newRow("decimal commas") << "100,0"
                                    << "100,5" << 0.3 << "100.8";
    QTest::newRow("a standing train repeats the mark") << "1.5"
                                                       << "2.5" << 0.0 << "2.5";
    QTest::newRow("words are no marks") << "km"
                                        << "nan" << 0.3 << "0.0";
}

void TestPlanRows::theMarkOfANewRowFollowsTheLastTwo()
{
    QFETCH(QString, before);
    QFETCH(QString, last);
    QFETCH(double, way);
    QTEST(QString::number(NextMark(before, last, way), 'f', 1), "mark");
}

void TestPlanRows::aWayInMilesIsShorter()
{
    QCOMPARE(InMarkUnit(1.60934, true), 1.0);
    QCOMPARE(InMarkUnit(1.60934, false), 1.60934);
}

void TestPlanRows::numbersAreReadFromTheFrontOfACell_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("number");
    QTest::addColumn<float>("mark");
    QTest::newRow("a plain number") << "50.9424" << 50.9424F << 50.9424F;
    QTest::newRow("a comma ends it, but for a mark") << "12,5" << 12.0F << 12.5F;
    QTest::newRow("a unit behind it") << "-12.5 km" << -12.5F << -12.5F;
    QTest::newRow("blanks around it") << "  7.25 " << 7.25F << 7.25F;
    QTest::newRow("an exponent") << "1e3m" << 1000.0F << 1000.0F;
    QTest::newRow("only a fraction") << ".5" << 0.5F << 0.5F;
    QTest::newRow("no mark") << "-99.9" << -99.9F << -99.9F;
    QTest::newRow("nothing") << "" << 0.0F << 0.0F;
    QTest::newRow("a word") << "Köln" << 0.0F << 0.0F;
    QTest::newRow("not a number") << "nan" << 0.0F << 0.0F;
    QTest::newRow("infinity") << "inf" << 0.0F << 0.0F;
    QTest::newRow("more than a float holds") << "1e99" << 0.0F << 0.0F;
    QTest::newRow("a sign alone") << "-" << 0.0F << 0.0F;
}

void TestPlanRows::numbersAreReadFromTheFrontOfACell()
{
    QFETCH(QString, text);
    QTEST(LeadingNumber(text), "number");
    QTEST(MarkOf(text), "mark");
}

void TestPlanRows::pointsOfALineAreShown()
{
    RoadMapEntry entry;
    entry.lat = 50.942373F;
    entry.distance = kNoDistanceMark;
    entry.name = "Köln Hbf";
    entry.gradient = "<<";
    QCOMPARE(TextsOf(RowOf(entry)),
             QStringList({"50.9424", "0", "0", "0", "-99.9", "", "Köln Hbf", "", "<<"}));
    entry.speed = 80;
    QCOMPARE(RowOf(entry).at(ColumnSpeed).text, QString("80"));
}

void TestPlanRows::pointsOfATimetableAreShown()
{
    TimeTableEntry entry;
    entry.departure = "08:10:30";
    entry.type = StopStart;
    entry.remark = "Gleis 3";
    QCOMPARE(TextsOf(RowOf(entry)),
             QStringList(
                 {"0", "0", "0", "0", "0", "0", "", "", "", "<08:10:30>", "<1>", "Gleis 3", ""}));
    entry.departure = "gleich"; // what an edit makes of it
    QCOMPARE(RowOf(entry).at(ColumnDeparture).input, QString("00:00:00"));
}

void TestPlanRows::aTimetableRowComesBackAsItWas()
{
    TimeTableEntry entry;
    entry.lat = 50.5F;
    entry.lon = 7.25F;
    entry.elevation = 61.0F;
    entry.slope = -0.5F;
    entry.distance = 12.5F;
    entry.speed = 80;
    entry.name = "Remagen";
    entry.symbol = "LZB";
    entry.gradient = "<";
    entry.arrival = "08:10:00";
    entry.departure = "08:11:30";
    entry.type = StopStation;
    entry.remark = "hält kurz";
    TimeTableEntry back;
    TakeRow(RowOf(entry), back);
    QCOMPARE(TextsOf(RowOf(back)), TextsOf(RowOf(entry)));
    QCOMPARE(back.slope, -0.5F);
    QCOMPARE(back.departure, QString("08:11:30"));
    QCOMPARE(back.type, int(StopStation));
}

void TestPlanRows::hostileCellsGiveEmptyValues()
{
    TimeTableEntry entry;
    TakeRow(PlanRow(), entry);
    QCOMPARE(entry.lat, 0.0F);
    QVERIFY(entry.arrival.isEmpty());
    QCOMPARE(entry.type, int(StopNone));
    RoadMapEntry point;
    TakeRow(RowOfTexts({"12,5", "nan", "1e99", "x", "12,5", "80.5", "a\nb\r;", "", "\n"}), point);
    QCOMPARE(point.lat, 12.0F);
    QCOMPARE(point.lon + point.elevation + point.slope, 0.0F);
    QCOMPARE(point.distance, 12.5F);
    QCOMPARE(point.speed, 0);
    QCOMPARE(point.name, QString("a b ;")); // a line break would tear the row of the file
}

void TestPlanRows::unknownStopTypesAreShownAsNone_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("back");
    QTest::newRow("the last known one") << 5 << 5;
    QTest::newRow("behind the last one") << 6 << 0;
    QTest::newRow("far out") << 2147483647 << 0;
    QTest::newRow("negative") << -1 << 0;
}

void TestPlanRows::unknownStopTypesAreShownAsNone()
{
    QFETCH(int, type);
    TimeTableEntry entry;
    entry.type = type;
    TimeTableEntry back;
    TakeRow(RowOf(entry), back);
    QTEST(back.type, "back");
    PlanRow row = RowOf(entry);
    row[ColumnType].input = QString::number(type);
    TakeRow(row, back);
    QTEST(back.type, "back");
}

void TestPlanRows::speedsAreCarriedOverBeforeTheTurn()
{
    const QVector<PlanRow> rows{RowOfTexts({"1", "", "", "", "100", ""}),
                                RowOfTexts({"2", "", "", "", "101", "80"}),
                                RowOfTexts({"3", "", "", "", "102", "0"}),
                                RowOfTexts({"4", "", "", "", "103", "120", "Ende"})};
    QStringList turned;
    for (const PlanRow &row : ReversedRows<RoadMapEntry>(rows))
        turned.append(row.at(ColumnLat).text + '/' + row.at(ColumnDistance).text + '/'
                      + row.at(ColumnSpeed).text + '/' + row.at(ColumnName).text);
    QCOMPARE(turned, QStringList({"4/103/120/Ende", "3/102/80/", "2/101/80/", "1/100//"}));
    const QVector<RoadMapEntry> entries = EntriesOf<RoadMapEntry>(rows);
    QCOMPARE(entries.at(2).speed, 80);
    QCOMPARE(entries.at(3).index, 3);
    QVERIFY(ReversedRows<TimeTableEntry>({}).isEmpty());
}

void TestPlanRows::aStopTypeSettlesTheTimes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("arrival");
    QTest::addColumn<QString>("departure");
    QTest::addColumn<QString>("arrivalAfter");
    QTest::addColumn<QString>("departureAfter");
    const QString none = "-";
    const QString minute = "08:15:00";
    const QString now = "08:15:42";
    QTest::newRow("none has no times") << 0 << "07:00:00"
                                       << "07:01:00" << none << none;
    QTest::newRow("the start leaves") << 1 << none << none << none << minute;
    QTest::newRow("the start keeps its departure") << 1 << "07:00:00"
                                                   << "07:01:00" << none << "07:01:00";
    QTest::newRow("the end arrives") << 2 << none << none << minute << none;
    QTest::newRow("the end keeps its arrival") << 2 << "07:00:00"
                                               << "07:01:00"
                                               << "07:00:00" << none;
    QTest::newRow("a station has both") << 3 << none << none << minute << now;
    QTest::newRow("a station keeps what it has") << 3 << none << "07:01:00" << minute << "07:01:00";
    QTest::newRow("a held train changes nothing") << 4 << "07:00:00" << none << "07:00:00" << none;
    QTest::newRow("a pass leaves") << 5 << none << none << none << minute;
    QTest::newRow("no choice changes nothing") << -1 << "07:00:00" << none << "07:00:00" << none;
}

void TestPlanRows::aStopTypeSettlesTheTimes()
{
    QFETCH(int, type);
    QFETCH(QString, arrival);
    QFETCH(QString, departure);
    PlanRow row(TimeTableColumns);
    row[ColumnArrival] = CellWithInput(arrival);
    row[ColumnDeparture] = CellWithInput(departure);
    const PlanRow after = WithStopType(row, type, QTime(8, 15, 42));
    QTEST(InputWord(after.at(ColumnArrival)), "arrivalAfter");
    QTEST(InputWord(after.at(ColumnDeparture)), "departureAfter");
    QCOMPARE(after.at(ColumnType).input, QString::number(type));
}

void TestPlanRows::typedTextsFitTheirColumn_data()
{
    QTest::addColumn<CellKind>("kind");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("after");
    const auto time = CellKind::Time;
    const auto type = CellKind::StopType;
    QTest::newRow("a time becomes an edit") << time << "-"
                                            << "08:10:30"
                                            << "08:10:30";
    QTest::newRow("a short time too") << time << "07:00:00"
                                      << " 8:10 "
                                      << "08:10:00";
    QTest::newRow("no text takes the time away") << time << "07:00:00"
                                                 << ""
                                                 << "-";
    QTest::newRow("no time leaves the time") << time << "07:00:00"
                                             << "25:00"
                                             << "07:00:00";
    QTest::newRow("a label") << type << "0"
                             << "haltestelle"
                             << "3";
    QTest::newRow("a label with its blank") << type << "0"
                                            << " Durchfahrt"
                                            << "5";
    QTest::newRow("a number") << type << "3"
                              << "2"
                              << "2";
    QTest::newRow("no text is no stop") << type << "3"
                                        << ""
                                        << "0";
    QTest::newRow("an unknown word leaves the type") << type << "3"
                                                     << "9"
                                                     << "3";
}

void TestPlanRows::typedTextsFitTheirColumn()
{
    QFETCH(CellKind, kind);
    QFETCH(QString, before);
    QFETCH(QString, typed);
    const PlanCell after = WithInput(CellWithInput(before), kind, typed);
    QTEST(InputWord(after), "after");
    QCOMPARE(WithInput(after, kind, InputText(after, kind)), after); // copied and pasted back
}

void TestPlanRows::tabbedTextIsCutIntoCells_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<QStringList>>("rows");
    using Rows = QVector<QStringList>;
    QTest::newRow("a column") << "a\nb\n" << Rows{{"a"}, {"b"}};
    QTest::newRow("a block with foreign line ends") << "a\tb\r\nc\td\r\n"
                                                    << Rows{{"a", "b"}, {"c", "d"}};
    QTest::newRow("an empty cell within") << "a\n\nb" << Rows{{"a"}, {""}, {"b"}};
    QTest::newRow("rows of different length") << "a\tb\nc" << Rows{{"a", "b"}, {"c"}};
    QTest::newRow("one empty cell") << "\n" << Rows{{""}};
    QTest::newRow("nothing") << "" << Rows{};
}

void TestPlanRows::tabbedTextIsCutIntoCells()
{
    QFETCH(QString, text);
    QTEST(ParseTabbed(text), "rows");
}

void TestPlanRows::cellMenusOfferTheirWords_data()
{
    QTest::addColumn<CellMenu>("menu");
    QTest::addColumn<bool>("withTrain");
    QTest::addColumn<QStringList>("entries"); // label=text
    QTest::newRow("a row without mark")
        << CellMenu::NoMark << false << QStringList{"leere Zeile, Wert:-99.9=-99.9"};
    QTest::newRow("signals") << CellMenu::Names << false
                             << QStringList{"Asig=Asig", "Bksig=Bksig", "Esig=Esig", "Zsig=Zsig",
                                            "Sbk=Sbk",   "Vsig=Vsig",   "Bü=Bü",     "Ne1=Ne1"};
    QTest::newRow("gradients") << CellMenu::Gradients << false << QStringList{"=", "<=<", "<<=<<"};
    QTest::newRow("stop types") << CellMenu::StopTypes << false
                                << QStringList{"Leer=", "Route Start=Start", "Route Ende=Ende",
                                               "Haltestelle=Haltestelle"};
    QTest::newRow("the latitude") << CellMenu::Latitude << true << QStringList{"50.9424=50.9424"};
    QTest::newRow("the longitude") << CellMenu::Longitude << true << QStringList{"6.95=6.95"};
    QTest::newRow("the slope") << CellMenu::Slope << true << QStringList{"-0.0125=-0.0125"};
    QTest::newRow("no train, no latitude") << CellMenu::Latitude << false << QStringList{};
    QTest::newRow("a column without menu") << CellMenu::None << true << QStringList{};
}

void TestPlanRows::cellMenusOfferTheirWords()
{
    QFETCH(CellMenu, menu);
    QFETCH(bool, withTrain);
    TrainData train;
    train.latitude = 50.942373F;
    train.longitude = 6.95F;
    train.simValue404 = -0.0125F;
    QStringList texts;
    for (const PlanMenuEntry &entry : CellMenuEntries(menu, withTrain ? &train : nullptr))
        texts.append(entry.label + '=' + entry.text);
    QTEST(texts, "entries");
}

void TestPlanRows::timeMenusOfferBothClocks_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<QStringList>("entries"); // label=time
    const QStringList own{"aktuelle Zeit 23:59:00=23:59:00",
                          "aktuelle Zeit + 1 min 00:00:00=00:00:00"};
    QTest::newRow("the simulator has no time yet") << -1 << own;
    QTest::newRow("the simulator's seconds stay")
        << 23 << own + QStringList{"Train Sim Zeit=23:59:30", "Train Sim Zeit + 1 min=00:00:30"};
    QTest::newRow("the simulator's clock is none")
        << 25 << own + QStringList{"Train Sim Zeit=", "Train Sim Zeit + 1 min="};
}

void TestPlanRows::timeMenusOfferBothClocks()
{
    QFETCH(int, hour);
    TrainData train;
    train.hour = hour;
    train.minute = 59;
    train.second = 30;
    QStringList texts;
    for (const TimeMenuEntry &entry : TimeMenuEntries(QTime(23, 59, 17), &train))
        texts.append(entry.label + '=' + entry.time.toString("HH:mm:ss"));
    QTEST(texts, "entries");
    QCOMPARE(TimeMenuEntries(QTime(8, 0), nullptr).size(), 2);
}

ZUGBLICK_TEST_MAIN(TestPlanRows)
#include "tst_planrows.moc"
