#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

/// Finds the heartbeats in an ECG of 128 samples a second while it comes in.
///
/// Method: the envelope of the ECG in the QRS band, as in Nygards and Sörnmo, "Delineation of the QRS complex
/// using the envelope of the ECG", Med. Biol. Eng. Comput. 21:538-547 (1983), here as the magnitude of a
/// complex Gabor filter, which does not depend on the polarity of the QRS; its peaks are judged with the
/// levels of signal and noise, the search back and the discrimination of T waves of Pan and Tompkins, "A
/// real-time QRS detection algorithm", IEEE Trans. Biomed. Eng. 32:230-236 (1985).
namespace pulselark {

struct Beat {
    static constexpr int ShapeSize = 32;
    static constexpr int ShapePeak = 16; ///< place of the beat's sample in `Shape`, from 0

    double Time = 0;       ///< of the QRS peak, s from the first sample, finer than a sample
    float Amplitude = 0;   ///< of the peak from the baseline, panel units; negative for a downward one
    bool Doubtful = false; ///< found by searching back, or beside lost samples or noise
    std::array<float, ShapeSize> Shape{}; ///< samples around the peak less the baseline, panel units
};

class BeatDetector {
public:
    /// A beat is given out at most so many seconds after its peak. Later come only beats found by searching
    /// back (before the next beat, `Doubtful`), and those of the first two seconds, which teach the levels.
    static constexpr double LookAhead = 0.296875;

    /// Takes one sample in panel units, NaN for a lost one, and gives the beat that is now certain. Beats
    /// come in the order of their times.
    std::optional<Beat> Push(float sample);

    /// At the end of a record: as if the last sample went on for `LookAhead`. Call until it gives none.
    std::optional<Beat> Flush();

    BeatDetector();

private:
    static constexpr int RingSize = 256; // two seconds
    static constexpr int Reach = 14;     // of the envelope's filter, samples on each side
    using Ring = std::array<float, RingSize>;

    // A peak of the envelope.
    struct Candidate {
        std::int64_t Place = 0; // its sample
        double Mark = 0;        // of the QRS peak, samples
        float Height = 0;       // of the envelope
        float Slope = 0;        // steepest within the QRS, panel units per sample
        bool BesideGap = false;
        Beat Found;
    };
    static constexpr std::size_t LevelBeats = 8;
    struct Recent { // the last few values, for their median
        std::array<float, LevelBeats> Values{};
        std::size_t Count = 0;
        void Add(float value);
        float Median() const;
    };

    static float& At(Ring& ring, std::int64_t index);
    float Sample(std::int64_t index) const;
    float Envelope(std::int64_t index) const;
    void TakeSample(float sample);
    float EnvelopeAt(std::int64_t centre) const;
    void FindCandidate();
    void PlaceMark(Candidate& candidate) const;
    void Describe(Candidate& candidate) const;
    void Learn();
    void Decide(Candidate candidate);
    bool Dominated(const Candidate& candidate) const;
    float Threshold(double sinceLast) const;
    void Accept(const Candidate& candidate, bool searchedBack);
    void SearchBack();
    std::optional<Beat> NextFound();

    std::array<float, 2 * Reach + 1> cosine_{}, sine_{};
    Ring samples_{}, envelope_{};
    std::int64_t count_ = 0;         // samples taken
    float held_ = 0;                 // last sample that was not lost
    std::int64_t gapEnd_ = -1000000; // last lost sample
    std::deque<Candidate> pending_, rejected_;
    std::deque<Beat> found_;
    Recent heights_, intervals_;
    float noise_ = 0;
    double lastMark_ = -1e9;
    float lastSlope_ = 0;
    bool learning_ = true;
    int flushed_ = 0;
};

} // namespace pulselark
