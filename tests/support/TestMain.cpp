#include "TestMain.h"

#include "Resources.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFont>
#include <QStandardPaths>

namespace {
/// CTest gives each test folders of its own. Where the system knows no such thing, and for a test
/// that is started by hand, there are the test folders of Qt; below them the test has its name.
void KeepUserFilesAway(const char *program)
{
#ifndef Q_OS_WIN
    if (!qEnvironmentVariableIsEmpty("XDG_DATA_HOME"))
        return;
#endif
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QFileInfo(QString::fromLocal8Bit(program)).baseName());
}

/// The offscreen platform finds faces in a folder on Windows, and no stand-in for one that it
/// lacks.
void NameFaces()
{
#ifdef Q_OS_WIN
    QFont::insertSubstitution(QStringLiteral("Arial"), QStringLiteral("Liberation Sans"));
#endif
}
} // namespace

int RunTest(QObject &test, int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Zugblick"));
    KeepUserFilesAway(argv[0]);
    NameFaces();
    InitResources();
    return QTest::qExec(&test, argc, argv);
}
