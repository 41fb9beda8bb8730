// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <string>

#include "ratio.h"

namespace vbr::bench {
namespace {

// Prints each ratio with its bound on a line, and what else was counted.
class RatioReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            Report(run);
        }
        std::fflush(stdout);
    }

    bool HasFailure() const { return failed_; }
    bool HasExcess() const { return exceeded_; }

  private:
    void Report(const Run& run) {
        std::string name = run.run_name.function_name;
        if (!run.run_name.args.empty()) {
            name += "/" + run.run_name.args;
        }
        std::printf("%-32s ", name.c_str());
        const auto ratio = run.counters.find("ratio");
        const auto bound = run.counters.find("bound");
        if (run.error_occurred) {
            failed_ = true;
            std::printf("FAILED: %s\n", run.error_message.c_str());
            return;
        }
        if (ratio == run.counters.end() || bound == run.counters.end() ||
            !std::isfinite(ratio->second.value) || ratio->second.value <= 0) {
            failed_ = true;
            std::puts("FAILED: it measured nothing");
            return;
        }
        std::printf("ratio %7.3f  bound %5.2f  %9.3f ms", ratio->second.value, bound->second.value,
                    run.real_accumulated_time / static_cast<double>(run.iterations) * 1e3);
        for (const auto& [counter, figure] : run.counters) {
            if (counter != "ratio" && counter != "bound") {
                std::printf("  %s %.4g", counter.c_str(), figure.value);
            }
        }
        const bool exceeds = ratio->second.value > bound->second.value;
        exceeded_ = exceeded_ || exceeds;
        std::puts(exceeds ? "  ABOVE ITS BOUND" : "");
    }

    bool failed_ = false;
    bool exceeded_ = false;
};

}  // namespace
}  // namespace vbr::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    vbr::bench::RatioReporter reporter;
    const std::size_t count = benchmark::RunSpecifiedBenchmarks(&reporter);
    if (count == 0) {
        std::fputs("no benchmark ran\n", stderr);
        return 2;
    }
    std::printf("%u benchmarks measured\n", static_cast<unsigned>(count));
    if (reporter.HasFailure()) {
        std::fputs("a benchmark failed\n", stderr);
        return 2;
    }
    if (reporter.HasExcess() && vbr::bench::ChecksBounds()) {
        std::fputs("a ratio is above its bound\n", stderr);
        return 1;
    }
    return 0;
}
