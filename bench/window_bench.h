#pragma once

#include "forms/style.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace stoikal {

/// Runs the benchmarks of a program that paints windows, without a screen.
inline int RunWindowBenchmarks(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ApplyStyle();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace stoikal
