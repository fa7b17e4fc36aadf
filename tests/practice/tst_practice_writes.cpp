#include "Console.h"
#include "TestMain.h"
#include "TrainModel.h"

#include <cmath>

using namespace practice;

class TestPracticeWrites : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void writtenLeversDriveTheTrain();
    void valuesStayWithinTheirLimits();
    void theConsoleUnderstands_data();
    void theConsoleUnderstands();

private:
    void Write(const char *name, double value);
    double Value(const char *name) const;
    /// Until the train runs at that speed, in km/h.
    void DriveTo(double kmh);

    std::unique_ptr<TrainModel> model;
};

void TestPracticeWrites::init()
{
    model = std::make_unique<TrainModel>();
}

void TestPracticeWrites::Write(const char *name, double value)
{
    QCOMPARE(model->WriteController(model->FindController(name), value),
             TrainModel::WriteResult::Done);
}

double TestPracticeWrites::Value(const char *name) const
{
    return model->ControllerValue(model->FindController(name));
}

void TestPracticeWrites::DriveTo(double kmh)
{
    for (int second = 0; second < 600 && model->TheCab().Kmh() < kmh; ++second)
        model->Step(1.0);
    QVERIFY(model->TheCab().Kmh() >= kmh);
}

void TestPracticeWrites::writtenLeversDriveTheTrain()
{
    model->Step(42.0); // ready, three seconds before the departure
    Write("TrainBrakeControl", 0.0);
    Write("VirtualThrottle", 0.5);
    model->Step(20.0);
    const double half = model->TheCab().Kmh();
    QVERIFY(half > 5.0);
    QVERIFY(Value("TractiveEffortPercent") > 40.0);
    Write("VirtualThrottle", 0.0);
    Write("TrainBrakeControl", 1.0);
    model->Step(2.0);
    QVERIFY(Value("TractiveEffortPercent") < 0.0);
    QVERIFY(Value("BrakePipePressureBAR") < 4.0);
    model->Step(30.0);
    QCOMPARE(model->TheCab().speed, 0.0);
    QVERIFY(Value("TrainBrakeCylinderPressureBAR") > 3.0);
}

void TestPracticeWrites::valuesStayWithinTheirLimits()
{
    Write("VirtualThrottle", 7.0);
    QCOMPARE(Value("VirtualThrottle"), 1.0);
    Write("VirtualThrottle", -7.0);
    QCOMPARE(Value("VirtualThrottle"), 0.0);
    Write("Headlights", std::nan(""));
    QCOMPARE(Value("Headlights"), 0.0);
    QCOMPARE(model->WriteController(model->FindController("LineVoltage"), 5.0),
             TrainModel::WriteResult::Indicator);
    QCOMPARE(model->WriteController(-1, 0.0), TrainModel::WriteResult::NoController);
    QCOMPARE(model->WriteController(100000, 0.0), TrainModel::WriteResult::NoController);
    QCOMPARE(model->ControllerValue(100000), 0.0);
}

void TestPracticeWrites::theConsoleUnderstands_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("quit");

    const QString help = Console::Help();
    QTest::newRow("a loco by its beginning") << "loco rail"
                                             << "loco changed to Railjet 1116 201" << false;
    QTest::newRow("a controller by its name") << "set Horn 1"
                                              << "Horn = 1" << false;
    QTest::newRow("no number") << "set Horn loud"
                               << "set CONTROLLER VALUE" << false;
    QTest::newRow("no command") << "explode" << help << false;
    QTest::newRow("the end") << "quit"
                             << "" << true;
}

void TestPracticeWrites::theConsoleUnderstands()
{
    QFETCH(QString, line);
    const Console::Answer answer = Console(*model).Run(line);
    QTEST(answer.text, "answer");
    QTEST(answer.quit, "quit");
}

ZUGBLICK_TEST_MAIN(TestPracticeWrites)
#include "tst_practice_writes.moc"
