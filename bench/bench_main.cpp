// Entry of the benchmark executable: a window-less Qt application, then the
// registered benchmarks.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "Session.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    Session::ReleaseDb();
    return 0;
}
