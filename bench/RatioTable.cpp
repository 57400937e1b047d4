#include "RatioTable.h"

#include <algorithm>
#include <cstdio>
#include <ostream>

namespace pulselark {

namespace {

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

const char* Verdict(double ratio, double goal) {
    if (goal == 0)
        return "";
    return ratio <= goal ? "kept" : "MISSED";
}

} // namespace

bool RatioTable::ReportContext(const Context& context) {
    PrintBasicContext(&GetErrorStream(), context);
    return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            failed_ = true;
            GetErrorStream() << run.benchmark_name() << ": " << run.error_message << '\n';
        } else if (run.run_type == Run::RT_Iteration) {
            const double perSecond = benchmark::GetTimeUnitMultiplier(run.time_unit);
            microseconds_[run.run_name.function_name].push_back(run.GetAdjustedCPUTime() / perSecond * 1e6);
        }
    }
}

void RatioTable::Finalize() {
    std::printf("%-44s %12s %12s %7s %6s\n", "median of processor time, microseconds", "figure", "floor",
                "ratio", "goal");
    for (const RatioRow& row : rows_) {
        const auto figure = microseconds_.find(row.Figure);
        const auto floor = microseconds_.find(row.Floor);
        if (figure == microseconds_.end() || floor == microseconds_.end())
            continue;
        const double own = Median(figure->second);
        const double bare = Median(floor->second);
        std::printf("%-44s %12.1f %12.1f %7.2f", row.Title, own, bare, own / bare);
        if (row.Goal > 0)
            std::printf(" %6.2f  %s", row.Goal, Verdict(own / bare, row.Goal));
        std::printf("\n");
    }
    std::fflush(stdout);
}

} // namespace pulselark
