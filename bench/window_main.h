#pragma once

#include <QApplication>
#include <benchmark/benchmark.h>

// The whole of main() of a benchmark with widgets, which nobody sees. 1 when there is an argument that Google
// Benchmark does not know.
inline int RunBenchmarksWithWidgets(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
