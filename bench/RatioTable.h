#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace pulselark {

/// A figure, the benchmark that is its floor, and the ratio that it should stay under (0: none is set).
struct RatioRow {
    const char* Title;
    const char* Figure;
    const char* Floor;
    double Goal;
};

/// Prints, in place of single results, one line for each figure: its median beside the median of its floor
/// from the same run, and the ratio. Processor time is compared, so that other programs count for little; the
/// caller sees to it that repetitions are interleaved, so that drift of the machine cancels.
class RatioTable final : public benchmark::BenchmarkReporter {
public:
    explicit RatioTable(std::vector<RatioRow> rows) : rows_(std::move(rows)) {}

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    /// Whether a benchmark could not do its work.
    bool Failed() const { return failed_; }

private:
    std::vector<RatioRow> rows_;
    std::map<std::string, std::vector<double>> microseconds_; // of each repetition, by benchmark
    bool failed_ = false;
};

} // namespace pulselark
