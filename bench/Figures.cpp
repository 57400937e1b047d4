#include "Figures.h"

#include "BenchSession.h"
#include "Floors.h"
#include "analysis/GCoherence.h"
#include "persistence/SessionFile.h"
#include "platform/system/SystemFiles.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/Rescan.h"
#include "session/SessionTick.h"

#include <algorithm>

namespace pulselark {

namespace {

// The tick is measured on the seconds from here on, one after another as in a replay: a second that is
// analysed twice would be passed over.
constexpr Long TickFirst = 3000;
constexpr Long TickSeconds = 100;
constexpr Integer TickAveraging = 14;

Long NextSecond(Long second) {
    return second + 1 < TickFirst + TickSeconds ? second + 1 : TickFirst;
}

void Rescan(benchmark::State& state) {
    MovingAverageWidth = 0;
    for (auto _ : state) {
        RescanSession(false);
        benchmark::DoNotOptimize(CoherenceA.data());
    }
}

void RescanFloor(benchmark::State& state) {
    for (auto _ : state)
        BareRescan();
}

void Read(benchmark::State& state, const std::string& fileName) {
    SystemFiles files;
    for (auto _ : state) {
        std::string text;
        if (files.ReadWhole(fileName, text) != 0 || ReadSessionText(text).Number != 0) {
            state.SkipWithError("the session could not be read");
            return;
        }
    }
}

void ReadFloor(benchmark::State& state, const std::string& fileName) {
    const auto expected = static_cast<std::size_t>(2 * SessionSeconds * (1 + SamplesPerSecond));
    for (auto _ : state) {
        if (BareRead(fileName) != expected) {
            state.SkipWithError("the session could not be read");
            return;
        }
    }
    // A floor that reads other numbers is no floor.
    if (!std::equal(EcgA.data(), EcgA.data() + SessionSeconds * SamplesPerSecond,
                    BareReadValues() + 2 * SessionSeconds))
        state.SkipWithError("the bare read differs");
}

void Write(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(SessionText());
}

void WriteFloor(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(BareWrite());
}

void Tick(benchmark::State& state) {
    MovingAverageWidth = TickAveraging;
    AnalysisSecond = TickFirst;
    for (auto _ : state) {
        RunAnalyses();
        AnalysisSecond = NextSecond(AnalysisSecond);
    }
}

void TickFloor(benchmark::State& state) {
    Long second = TickFirst;
    for (auto _ : state) {
        BareTransforms(second);
        BareHrv(second);
        second = NextSecond(second);
    }
}

} // namespace

void RegisterFigures(const BenchSession& session) {
    using benchmark::RegisterBenchmark;
    const std::string& name = session.FileName();
    RegisterBenchmark("Rescan", Rescan);
    RegisterBenchmark("RescanFloor", RescanFloor);
    RegisterBenchmark("Read", Read, name);
    RegisterBenchmark("ReadFloor", ReadFloor, name);
    RegisterBenchmark("Write", Write);
    RegisterBenchmark("WriteFloor", WriteFloor);
    RegisterBenchmark("Tick", Tick);
    RegisterBenchmark("TickFloor", TickFloor);
}

std::vector<RatioRow> FigureRows() {
    return {{"rescan of an hour / bare transforms", "Rescan", "RescanFloor", 1.3},
            {"read an hour's file / bare from_chars", "Read", "ReadFloor", 1.5},
            {"text of an hour / bare to_chars", "Write", "WriteFloor", 1.5},
            {"analyses of a second / bare transforms", "Tick", "TickFloor", 0}};
}

} // namespace pulselark
