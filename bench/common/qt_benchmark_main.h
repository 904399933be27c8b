#pragma once

// The main of a benchmark that needs widgets: an offscreen QApplication around Google Benchmark's
// own run.

#include <QApplication>
#include <QtGlobal>

#include <benchmark/benchmark.h>

#define PICKERCTL_QT_BENCHMARK_MAIN()                                                                 \
    int main(int argc, char **argv)                                                                   \
    {                                                                                                 \
        qputenv("QT_QPA_PLATFORM", "offscreen");                                                      \
        QApplication app(argc, argv);                                                                 \
        benchmark::Initialize(&argc, argv);                                                           \
        if (benchmark::ReportUnrecognizedArguments(argc, argv))                                       \
            return 1;                                                                                 \
        benchmark::RunSpecifiedBenchmarks();                                                          \
        benchmark::Shutdown();                                                                        \
        return 0;                                                                                     \
    }
