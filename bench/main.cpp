// pulselark_bench: prints each figure beside its floor. Takes the options of Google Benchmark, such as
// --benchmark_filter=Read and --benchmark_out=FILE.json for the single results.
#include "BenchSession.h"
#include "Figures.h"
#include "RatioTable.h"
#include "SoundBench.h"
#include "platform/system/ConsolePlatform.h"

#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

using namespace pulselark;

int main(int argc, char** argv) {
    // Put before the user's own options, which so have the last word.
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    std::string repetitions = "--benchmark_repetitions=25";
    std::string shortTurns = "--benchmark_min_time=0.05";
    std::vector<char*> arguments{argv[0], interleaved.data(), repetitions.data(), shortTurns.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    try {
        const ConsolePlatform platform;
        const BenchSession session;
        RegisterFigures(session);
        RegisterSound();
        std::printf("%s\n", session.FileName().c_str());
        std::vector<RatioRow> rows = FigureRows();
        const std::vector<RatioRow> sound = SoundRows();
        rows.insert(rows.end(), sound.begin(), sound.end());
        RatioTable table(std::move(rows));
        benchmark::RunSpecifiedBenchmarks(&table);
        return table.Failed() ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "pulselark_bench: %s\n", error.what());
        return 1;
    }
}
