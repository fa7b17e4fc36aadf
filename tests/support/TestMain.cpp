#include "TestMain.h"

#include "Resources.h"

#include <QCoreApplication>
#include <QStandardPaths>

int RunTest(QObject &test, int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Zugblick"));
    QStandardPaths::setTestModeEnabled(true);
    InitResources();
    return QTest::qExec(&test, argc, argv);
}
