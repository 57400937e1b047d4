#include "analysis/BeatDetector.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pulselark {

namespace {

// Samples, unless said otherwise.
constexpr double Rate = 128;
constexpr int PeakReach = 9;      // that a peak of the envelope tops on each side
constexpr int MarkReach = 9;      // from the envelope's peak to the QRS peak at most
constexpr int BaselineReach = 20; // of the mean that an amplitude counts from
constexpr double PolarityWeight = 0.15, PolarityPace = 0.1;
constexpr int HeightReach = 4;                              // in which the three envelopes peak
constexpr int RivalReach = 22;                              // within which only the highest peak counts
constexpr int Wait = 37;                                    // from the QRS peak to the decision
constexpr int QrsReach = 8, AheadFrom = 11, SlopeReach = 2; // of the slopes that are compared
constexpr double Refractory = 0.2 * Rate;
constexpr double LatestRevision = 0.266 * Rate;
constexpr double RevisionGain = 0.2; // in logarithms of two envelopes
constexpr double SearchBackAfter = 1.66, LowestSearchedScore = -0.5;
constexpr float MonitorNoise = 10, LowestHeight = 2.3F; // panel units, and its logarithm
constexpr double NeverABeat = -1000;                    // as a score
constexpr double GapEdge = 0.12 * Rate, BesideGap = 0.25 * Rate;
constexpr std::int64_t LearningTime = 320, Silence = 1024;
constexpr std::size_t MostRejected = 64;

static_assert((Wait + 1) / Rate == BeatDetector::LookAhead);

} // namespace

std::optional<Beat> BeatDetector::Push(float sample) {
    signal_.Push(sample);
    FindCandidate();
    const auto now = static_cast<double>(signal_.Count() - 1);
    if (learnedAt_ == 0 && signal_.Count() < LearningTime)
        return NextFound();
    if (learnedAt_ == 0 || (now - lastMark_ > Silence && signal_.Count() - learnedAt_ > Silence &&
                            !signal_.BesideGap(now, Silence)))
        LearnAnew();
    while (!pending_.empty() && pending_.front().Mark + Wait <= now) {
        Describe(pending_.front());
        Decide(pending_.front());
        pending_.pop_front();
    }
    return NextFound();
}

std::optional<Beat> BeatDetector::Flush() {
    if (end_ < 0)
        end_ = signal_.Count();
    const float last = signal_.Sample(end_ - 1);
    const std::int64_t waited = std::max(end_, LearningTime) + Wait + MarkReach;
    while (found_.empty() && signal_.Count() < waited && end_ > 0)
        if (const auto beat = Push(last))
            return beat;
    return NextFound();
}

std::optional<Beat> BeatDetector::NextFound() {
    if (found_.empty())
        return std::nullopt;
    const Beat beat = found_.front();
    found_.pop_front();
    return beat;
}

void BeatDetector::FindCandidate() {
    const std::int64_t place = signal_.Count() - 1 - QrsSignal::Reach - PeakReach;
    // What follows the end of a record is not part of it, and bends the last envelope.
    if (place < 0 || (end_ >= 0 && place >= end_ - PeakReach))
        return;
    const float height = signal_.Envelope(QrsSignal::Qrs, place);
    for (int k = 1; k <= PeakReach; ++k)
        if (signal_.Envelope(QrsSignal::Qrs, place - k) > height ||
            signal_.Envelope(QrsSignal::Qrs, place + k) >= height)
            return;
    QrsCandidate candidate;
    candidate.Place = place;
    for (const auto band : {QrsSignal::Qrs, QrsSignal::Below, QrsSignal::Above}) {
        float highest = 0;
        for (int k = -HeightReach; k <= HeightReach; ++k)
            highest = std::max(highest, signal_.Envelope(band, place + k));
        candidate.Height[band] = std::log(highest + 1);
    }
    PlaceMark(candidate);
    pending_.push_back(candidate);
}

void BeatDetector::PlaceMark(QrsCandidate& candidate) const {
    double baseline = 0;
    for (int k = -BaselineReach; k <= BaselineReach; ++k)
        baseline += signal_.Sample(candidate.Place + k) / (2.0 * BaselineReach + 1);
    const auto amplitude = [&](std::int64_t k) { return signal_.Sample(k) - baseline; };
    // Of an R and an S of almost the same size always the same one.
    const auto prominence = [&](std::int64_t k) {
        return std::abs(amplitude(k)) * (1 + PolarityWeight * (amplitude(k) < 0 ? -polarity_ : polarity_));
    };
    std::int64_t peak = candidate.Place - MarkReach;
    for (std::int64_t k = peak; k <= candidate.Place + MarkReach; ++k)
        if (prominence(k) > prominence(peak))
            peak = k;
    const double left = amplitude(peak - 1), right = amplitude(peak + 1);
    const double bend = left - 2 * amplitude(peak) + right;
    const double vertex = std::abs(bend) > 1e-6 ? std::clamp((left - right) / (2 * bend), -0.5, 0.5) : 0;
    candidate.Mark = static_cast<double>(peak) + vertex;
    candidate.Found.Time = std::max(0.0, candidate.Mark / Rate);
    candidate.Found.Amplitude = static_cast<float>(amplitude(peak));
}

// What is known of a candidate only when it is decided on.
void BeatDetector::Describe(QrsCandidate& candidate) const {
    const std::int64_t start = std::llrint(candidate.Mark) - Beat::ShapePeak;
    double sum = 0;
    for (int k = 0; k < Beat::ShapeSize; ++k)
        sum += candidate.Found.Shape[static_cast<std::size_t>(k)] = signal_.Sample(start + k);
    for (float& value : candidate.Found.Shape)
        value -= static_cast<float>(sum / Beat::ShapeSize);
    candidate.Found.Doubtful = signal_.BesideGap(candidate.Mark, BesideGap);
    // The logarithm counts from the noise of the monitor.
    const auto steepest = [this](std::int64_t from, std::int64_t to) {
        float slope = 0;
        for (std::int64_t k = from; k <= std::min(to, signal_.Count() - 1 - SlopeReach); ++k)
            slope =
                std::max(slope, std::abs(signal_.Sample(k + SlopeReach) - signal_.Sample(k - SlopeReach)));
        return std::log(slope + MonitorNoise);
    };
    const std::int64_t mark = std::llrint(candidate.Mark);
    candidate.Ahead = steepest(mark + AheadFrom, mark + Wait - SlopeReach) -
                      steepest(candidate.Place - QrsReach, candidate.Place + QrsReach);
}

bool BeatDetector::Dominated(const QrsCandidate& candidate) const {
    const std::int64_t known = signal_.Count() - 1 - QrsSignal::Reach;
    const float own = signal_.Envelope(QrsSignal::Qrs, candidate.Place);
    for (std::int64_t k = std::max<std::int64_t>(0, candidate.Place - RivalReach);
         k <= std::min(known, candidate.Place + RivalReach); ++k)
        if (signal_.Envelope(QrsSignal::Qrs, k) > own)
            return true;
    return false;
}

void BeatDetector::Decide(const QrsCandidate& candidate) {
    const double sinceLast = candidate.Mark - lastMark_;
    if (signal_.BesideGap(candidate.Mark, GapEdge) || Dominated(candidate))
        return;
    if (sinceLast < Refractory) {
        Revise(candidate);
        return;
    }
    rejected_.push_back(candidate);
    rejected_.back().Score = levels_.Score(candidate, sinceLast);
    if (candidate.Height[QrsSignal::Qrs] < LowestHeight)
        rejected_.back().Score = NeverABeat;
    if (rejected_.back().Score > 0) {
        Accept(candidate, false);
        return;
    }
    Revise(candidate);
    levels_.AddOther(candidate, sinceLast);
    if (rejected_.size() > MostRejected)
        rejected_.pop_front();
    SearchBack();
}

void BeatDetector::Accept(const QrsCandidate& candidate, bool searchedBack) {
    const double interval = candidate.Mark - lastMark_;
    const bool afterGap = signal_.GapBetween(lastMark_, candidate.Mark);
    const bool usable = interval < 3 * Rate && !afterGap;
    levels_.AddBeat(candidate, usable ? interval : 0);
    polarity_ += PolarityPace * ((candidate.Found.Amplitude < 0 ? -1 : 1) - polarity_);
    last_ = candidate;
    lastMark_ = candidate.Mark;
    found_.push_back(candidate.Found);
    found_.back().Doubtful = candidate.Found.Doubtful || searchedBack;
    found_.back().AfterGap = afterGap;
    rejected_.clear();
}

// A large P wave may pass for the beat. The QRS that follows it then comes too early to be one more beat, but
// it is what the next beats are to be compared with.
bool BeatDetector::Revise(const QrsCandidate& candidate) {
    const double sinceLast = candidate.Mark - lastMark_;
    if (sinceLast < 0 || sinceLast > LatestRevision ||
        candidate.Steepness() < last_.Steepness() + RevisionGain)
        return false;
    levels_.ReplaceBeat(candidate);
    last_ = candidate;
    lastMark_ = candidate.Mark;
    return true;
}

void BeatDetector::SearchBack() {
    const double sinceLast = static_cast<double>(signal_.Count() - 1) - lastMark_;
    if (sinceLast < SearchBackAfter * levels_.UsualInterval())
        return;
    const auto best = std::max_element(rejected_.begin(), rejected_.end(),
                                       [](const auto& a, const auto& b) { return a.Score < b.Score; });
    if (best != rejected_.end() && best->Score > LowestSearchedScore) {
        const QrsCandidate chosen = *best;
        Accept(chosen, true);
    }
}

// The waves since the last beat are judged once more, by levels that they teach themselves.
void BeatDetector::LearnAnew() {
    const std::int64_t from = signal_.Count() - LearningTime;
    std::vector<QrsCandidate> waves;
    for (const auto* row : {&rejected_, &pending_})
        for (const QrsCandidate& candidate : *row)
            if (candidate.Mark >= static_cast<double>(from) && !signal_.BesideGap(candidate.Mark, GapEdge))
                waves.push_back(candidate);
    rejected_.clear();
    for (QrsCandidate& candidate : waves)
        Describe(candidate);
    levels_.Learn(waves);
    learnedAt_ = signal_.Count();
    pending_.assign(waves.begin(), waves.end());
}

} // namespace pulselark
