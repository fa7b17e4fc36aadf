#include "Resources.h"

#include <QApplication>

#include <benchmark/benchmark.h>

/// The `main` of benchmarks that open windows; into memory, unless a platform is chosen.
int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    InitResources();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
