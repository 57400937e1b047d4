#pragma once

#include "analysis/Beat.h"
#include "analysis/QrsLevels.h"
#include "analysis/QrsSignal.h"

#include <deque>
#include <optional>

namespace pulselark {

/// Finds the heartbeats in an ECG of 128 samples a second while it comes in.
///
/// Method: the envelope of the ECG in the QRS band, as in Nygards and Sörnmo, "Delineation of the QRS complex
/// using the envelope of the ECG", Med. Biol. Eng. Comput. 21:538-547 (1983), here as the magnitude of a
/// complex Gabor filter; its peaks are judged by running levels of signal and noise, of T waves apart, and
/// with a search back after 1.66 intervals, as in Pan and Tompkins, "A real-time QRS detection algorithm",
/// IEEE Trans. Biomed. Eng. 32:230-236 (1985). The judgement itself is a linear discriminant
/// (`QrsLevels::Score`). The mark is the vertex of a parabola through the highest sample of the QRS.
///
/// A gap of lost samples or of a flat line holds no beats; after eight seconds without a beat the levels are
/// learned anew.
class BeatDetector {
public:
    /// A beat is given out at most so many seconds after its peak. Later come only beats found by searching
    /// back (`Doubtful`), and those of stretches that teach the levels: the first 2.5 s, and eight seconds
    /// without a beat.
    static constexpr double LookAhead = 0.296875;

    /// Takes one sample in panel units, NaN for a lost one, and gives the next beat that is certain. Beats
    /// come in the order of their times.
    std::optional<Beat> Push(float sample);

    /// At the end of a record: as if the last sample went on for `LookAhead`. Call until it gives none.
    std::optional<Beat> Flush();

private:
    void FindCandidate();
    void PlaceMark(QrsCandidate& candidate) const;
    void Describe(QrsCandidate& candidate) const;
    bool Dominated(const QrsCandidate& candidate) const;
    void Decide(const QrsCandidate& candidate);
    void Accept(const QrsCandidate& candidate, bool searchedBack);
    bool Revise(const QrsCandidate& candidate);
    void SearchBack();
    void LearnAnew();
    std::optional<Beat> NextFound();

    QrsSignal signal_;
    QrsLevels levels_;
    std::deque<QrsCandidate> pending_;  // not yet decided
    std::deque<QrsCandidate> rejected_; // since the last beat
    std::deque<Beat> found_;            // not yet given out
    QrsCandidate last_;                 // the last beat
    double lastMark_ = -1e9;            // and its mark
    double polarity_ = 0;               // of the last beats, -1 to 1
    std::int64_t learnedAt_ = 0;        // sample when the levels were learned; 0 before
    std::int64_t end_ = -1;             // samples of the record once it is at its end
};

} // namespace pulselark
