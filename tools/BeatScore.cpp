#include "BeatScore.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pulselark {

namespace {

constexpr double WideWindow = 0.150, NarrowWindow = 0.050; // s
constexpr int FlutterStart = 32, FlutterEnd = 33;

using Stretches = std::vector<std::pair<double, double>>;

Stretches FlutterOf(const std::vector<WfdbMark>& marks) {
    Stretches stretches;
    for (const WfdbMark& mark : marks) {
        if (mark.Code == FlutterStart)
            stretches.emplace_back(mark.Time - WideWindow, 1e9);
        else if (mark.Code == FlutterEnd && !stretches.empty())
            stretches.back().second = mark.Time + WideWindow;
    }
    return stretches;
}

bool Within(const Stretches& stretches, double time) {
    return std::any_of(stretches.begin(), stretches.end(),
                       [time](const auto& s) { return time >= s.first && time <= s.second; });
}

struct Pairing {
    BeatScore Score;
    std::vector<double> Offsets, MissedTimes, FalseTimes;
};

// Walks both rows in time; a found time goes to the nearer of two marks.
Pairing Pair(const std::vector<double>& marks, const std::vector<double>& found, double shift,
             double window) {
    Pairing result;
    std::size_t f = 0;
    const auto offset = [&](std::size_t i, double mark) { return found[i] - shift - mark; };
    for (std::size_t m = 0; m < marks.size(); ++m) {
        while (f < found.size() && offset(f, marks[m]) < -window)
            result.FalseTimes.push_back(found[f++]);
        while (f + 1 < found.size() && std::abs(offset(f + 1, marks[m])) < std::abs(offset(f, marks[m])))
            result.FalseTimes.push_back(found[f++]);
        const bool near = f < found.size() && std::abs(offset(f, marks[m])) <= window;
        const bool nearerToNext =
            near && m + 1 < marks.size() && std::abs(offset(f, marks[m + 1])) < std::abs(offset(f, marks[m]));
        if (near && !nearerToNext)
            result.Offsets.push_back(offset(f++, marks[m]));
        else
            result.MissedTimes.push_back(marks[m]);
    }
    result.FalseTimes.insert(result.FalseTimes.end(), found.begin() + static_cast<std::ptrdiff_t>(f),
                             found.end());
    result.Score = {static_cast<int>(result.Offsets.size()), static_cast<int>(result.MissedTimes.size()),
                    static_cast<int>(result.FalseTimes.size())};
    return result;
}

double Quantile(const std::vector<double>& sorted, double share) {
    return sorted.empty() ? 0
                          : sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

} // namespace

BeatScore& BeatScore::operator+=(const BeatScore& other) {
    Hits += other.Hits;
    Missed += other.Missed;
    False += other.False;
    return *this;
}

RecordScore ScoreBeats(const std::vector<WfdbMark>& marks, const std::vector<double>& found) {
    const Stretches flutter = FlutterOf(marks);
    std::vector<double> beats, times;
    for (const WfdbMark& mark : marks)
        if (IsBeat(mark.Code) && !Within(flutter, mark.Time))
            beats.push_back(mark.Time);
    for (const double time : found)
        if (!Within(flutter, time))
            times.push_back(time);
    RecordScore score;
    Pairing wide = Pair(beats, times, 0, WideWindow);
    score.Wide = wide.Score;
    score.MissedTimes = std::move(wide.MissedTimes);
    score.FalseTimes = std::move(wide.FalseTimes);
    double sum = 0, squares = 0;
    for (const double offset : wide.Offsets) {
        sum += offset;
        squares += offset * offset;
    }
    const double count = std::max(1.0, static_cast<double>(wide.Offsets.size()));
    score.StandardDeviation = std::sqrt(std::max(0.0, squares / count - sum / count * sum / count));
    std::sort(wide.Offsets.begin(), wide.Offsets.end());
    score.MedianOffset = Quantile(wide.Offsets, 0.5);
    score.Spread = (Quantile(wide.Offsets, 0.84) - Quantile(wide.Offsets, 0.16)) / 2;
    score.Narrow = Pair(beats, times, score.MedianOffset, NarrowWindow).Score;
    return score;
}

} // namespace pulselark
