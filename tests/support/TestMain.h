#pragma once

#include <QObject>
#include <QTest>

/// Prepares the process as `main` of the program does (scaling, name, art and fonts), keeps all
/// paths away from the user's files, and runs the test object.
int RunTest(QObject &test, int argc, char **argv);

/// The `main` of a test executable: `ZUGBLICK_TEST_MAIN(TestJob)` at the end of its file.
#define ZUGBLICK_TEST_MAIN(TestClass)                                                              \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);                                   \
        QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);                                      \
        QGuiApplication::setHighDpiScaleFactorRoundingPolicy(                                      \
            Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);                                    \
        QApplication app(argc, argv);                                                              \
        TestClass test;                                                                            \
        return RunTest(test, argc, argv);                                                          \
    }
