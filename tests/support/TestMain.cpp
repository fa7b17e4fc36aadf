#include "TestMain.h"

#include "Resources.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace {
/// CTest gives each test folders of its own. A test that is started by hand gets the test folders
/// of Qt; these are one place for all tests, so they would not do for two at a time.
void KeepUserFilesAway()
{
    if (qEnvironmentVariableIsEmpty("XDG_DATA_HOME"))
        QStandardPaths::setTestModeEnabled(true);
}
} // namespace

int RunTest(QObject &test, int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Zugblick"));
    KeepUserFilesAway();
    InitResources();
    return QTest::qExec(&test, argc, argv);
}
