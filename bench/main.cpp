// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <cstdio>

#include "ratio.h"

bool& vbr::bench::AllWithinBounds() {
    static bool all = true;
    return all;
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    if (benchmark::RunSpecifiedBenchmarks() == 0) {
        std::fputs("no benchmark ran\n", stderr);
        return 2;
    }
    if (!vbr::bench::AllWithinBounds()) {
        std::fputs("a ratio is above its bound\n", stderr);
        return 1;
    }
    return 0;
}
