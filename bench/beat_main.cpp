// pulselark_beat_bench: how well the live detector finds beats. Prints a table over the records of the
// folders mitdb and nstdb of PULSELARK_DATA, their first channel, whole length, ventricular flutter left out.
#include "BeatScore.h"
#include "analysis/BeatDetector.h"
#include "analysis/IntervalSeries.h"
#include "analysis/Resampler.h"
#include "persistence/WfdbRecord.h"
#include "platform/Platform.h"
#include "platform/system/ConsolePlatform.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

using namespace pulselark;

namespace {

struct Found {
    std::vector<double> Times;
    IntervalSeries Series;
    double WorstDelay = 0; // from a beat to its being given out, of those not searched for, s
    double SecondsSpent = 0;
};

Found FindBeats(const std::vector<float>& samples) {
    Found found;
    BeatDetector detector;
    const auto take = [&found](const Beat& beat) {
        found.Times.push_back(beat.Time);
        found.Series.Add(beat);
    };
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto beat = detector.Push(samples[i]);
        if (!beat)
            continue;
        take(*beat);
        const double now = static_cast<double>(i) / Resampler::OutputRate;
        if (!beat->Doubtful && beat->Time > 3)
            found.WorstDelay = std::max(found.WorstDelay, now - beat->Time);
    }
    while (const auto beat = detector.Flush())
        take(*beat);
    found.Series.Finish();
    found.SecondsSpent = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return found;
}

struct Seconds {
    int Right = 0, All = 0;
    int RightOfTwo = 0, Two = 0; // of those in which two normal beats lie
    double Percent() const { return All > 0 ? 100.0 * Right / All : 100; }
    double PercentOfTwo() const { return Two > 0 ? 100.0 * RightOfTwo / Two : 100; }
    Seconds& operator+=(const Seconds& other) {
        Right += other.Right;
        All += other.All;
        RightOfTwo += other.RightOfTwo;
        Two += other.Two;
        return *this;
    }
};

// Seconds in which an interval between two normal beats of the experts ends, and those of them in which the
// rate is within 2 beats a minute of theirs.
Seconds CompareRates(const std::vector<WfdbMark>& marks, const IntervalSeries& series) {
    constexpr int FlutterWave = 31;
    struct Sum {
        double Intervals = 0;
        int Count = 0;
    };
    std::map<int, Sum> expert;
    std::map<int, int> normalBeats;
    const WfdbMark* before = nullptr;
    for (const WfdbMark& mark : marks) {
        if (!IsBeat(mark.Code) && mark.Code != FlutterWave)
            continue;
        normalBeats[static_cast<int>(mark.Time) + 1] += IsNormalBeat(mark.Code) ? 1 : 0;
        if (before != nullptr && IsNormalBeat(before->Code) && IsNormalBeat(mark.Code)) {
            Sum& sum = expert[static_cast<int>(mark.Time) + 1];
            sum.Intervals += mark.Time - before->Time;
            ++sum.Count;
        }
        before = &mark;
    }
    Seconds seconds;
    for (const auto& [second, sum] : expert) {
        const double rate = 60 * sum.Count / sum.Intervals;
        const int right =
            std::abs(60.0 / static_cast<double>(series.MeanInterval(second)) - rate) <= 2 ? 1 : 0;
        const bool two = normalBeats[second] >= 2;
        seconds.Right += right;
        seconds.RightOfTwo += two ? right : 0;
        seconds.Two += two ? 1 : 0;
        ++seconds.All;
    }
    return seconds;
}

struct Totals {
    BeatScore Wide, Narrow;
    std::vector<double> Spreads;
    Seconds Rates;
    double WorstDelay = 0, SecondsSpent = 0;
};

void MeasureRecord(const std::string& folder, const std::string& name, Totals& totals) {
    const std::string base = folder + "/" + name.substr(0, name.size() - 4);
    WfdbHeader header;
    std::vector<float> recorded, samples;
    std::string annotations;
    if (ReadWfdbRecord(base + ".hea", 0, header, recorded).Number != 0 ||
        ThePlatform().Files.ReadWhole(base + ".atr", annotations) != 0) {
        std::printf("%-8s cannot be read\n", name.c_str());
        return;
    }
    Resampler resampler(header.Rate);
    for (const float sample : recorded)
        resampler.Push(sample, samples);
    resampler.Flush(samples);
    const Found found = FindBeats(samples);
    const auto marks = ReadWfdbMarks(annotations, header.Rate);
    const RecordScore score = ScoreBeats(marks, found.Times);
    const Seconds rates = CompareRates(marks, found.Series);
    std::printf("%-8s %6d %5d %5d %8.2f %8.2f %8.2f %9.2f %8.2f %8.1f %7.1f %7.1f %7.1f\n",
                name.substr(0, name.size() - 4).c_str(), score.Wide.Hits + score.Wide.Missed,
                score.Wide.Missed, score.Wide.False, 100 * score.Wide.Sensitivity(),
                100 * score.Wide.Predictivity(), 100 * score.Wide.F1(), 100 * score.Narrow.Sensitivity(),
                100 * score.Narrow.Predictivity(), 1000 * score.MedianOffset, 1000 * score.Spread,
                1000 * score.StandardDeviation, rates.Percent());
    totals.Wide += score.Wide;
    totals.Narrow += score.Narrow;
    totals.Spreads.push_back(score.Spread);
    totals.Rates += rates;
    totals.WorstDelay = std::max(totals.WorstDelay, found.WorstDelay);
    totals.SecondsSpent += found.SecondsSpent;
}

void MeasureFolder(const std::string& folder) {
    std::vector<std::string> names;
    if (ThePlatform().Files.ListFolder(folder, ".hea", names) != 0 || names.empty()) {
        std::printf("%s: no records\n", folder.c_str());
        return;
    }
    std::printf("%s\n%-8s %6s %5s %5s %8s %8s %8s %9s %8s %8s %7s %7s %7s\n", folder.c_str(), "record",
                "beats", "FN", "FP", "Se 150", "+P 150", "F1 150", "Se 50", "+P 50", "offset", "spread",
                "s.d.", "rate");
    Totals totals;
    for (const std::string& name : names)
        MeasureRecord(folder, name, totals);
    if (totals.Spreads.empty())
        return;
    std::sort(totals.Spreads.begin(), totals.Spreads.end());
    std::printf("together: Se %.3f %%, +P %.3f %% within 150 ms; Se %.3f %%, +P %.3f %% within 50 ms; spread "
                "of the mark "
                "%.2f ms at the median record;\nrate within 2/min in %.2f %% of %d seconds, in %.2f %% of "
                "the %d with two normal "
                "beats; look-ahead %.3f "
                "s, longest "
                "measured %.3f s; %.2f ms for a minute of ECG\n\n",
                100 * totals.Wide.Sensitivity(), 100 * totals.Wide.Predictivity(),
                100 * totals.Narrow.Sensitivity(), 100 * totals.Narrow.Predictivity(),
                1000 * totals.Spreads[totals.Spreads.size() / 2], totals.Rates.Percent(), totals.Rates.All,
                totals.Rates.PercentOfTwo(), totals.Rates.Two, BeatDetector::LookAhead, totals.WorstDelay,
                1000 * totals.SecondsSpent / (30 * static_cast<double>(totals.Spreads.size())));
}

} // namespace

int main() {
    const char* data = std::getenv("PULSELARK_DATA");
    if (data == nullptr || *data == '\0') {
        std::fprintf(stderr, "pulselark_beat_bench: PULSELARK_DATA names no folder with mitdb and nstdb\n");
        return 1;
    }
    const ConsolePlatform platform;
    std::printf(
        "Detector at 128 samples a second, first channel, whole length, flutter left out. Se, +P, F1 in %% "
        "within "
        "150 ms,\nand within 50 ms once the record's median offset is taken out; offset, spread (half the "
        "middle 68 %%), s.d. in ms;\nrate: seconds with an interval of two normal beats in which it is "
        "within 2 a "
        "minute of the experts', %%\n\n");
    for (const char* folder : {"/mitdb", "/nstdb"})
        MeasureFolder(std::string(data) + folder);
    return 0;
}
