#include "feedback/MidiChord.h"

#include "feedback/MIDI_CMD.h"
#include "feedback/MIDI_OUT.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pulselark {

namespace {

constexpr double SemitoneRatio = 1.0594630943;
constexpr double FullCoherence = 0.11;
constexpr Long LoudestLevel = 100;

struct ChordNote {
    int Channel;
    int Semitones; // from the root
    double Share;  // of the loudness
};
constexpr std::array<ChordNote, 8> Chord{{{0, 0, 0.5},
                                          {1, 0, 0.5},
                                          {0, -5, 0.33},
                                          {0, 4, 0.5},
                                          {0, 7, 0.5},
                                          {1, -5, 0.33},
                                          {1, 4, 0.5},
                                          {1, 7, 0.5}}};

bool sessionChordSounds = false;

Long RootOfPeak() {
    constexpr double Scale = 64 * 256;
    return PeakIndexA > 0 ? static_cast<Long>(Round(Scale / PeakIndexA)) : 0;
}

Long LoudnessOfSecond() {
    if (TrainingActive == Off || FeedbackMode == 2) {
        const double coherence = CoherenceAvgA.at(AnalysisSecond + 1);
        return static_cast<Long>(Round(coherence * 115 / FullCoherence - 15));
    }
    return FeedbackMode == 3 ? static_cast<Long>(DynamicIndex) : 0;
}

} // namespace

void PlayMidiChord(bool test, int pitchOffset, int level) {
    if (!MidiProbe() || MidiReady == Off)
        return;
    MidiBothOff();
    const Long root = test ? 440 - pitchOffset : RootOfPeak();
    const Long wanted = test ? static_cast<Long>(Round(115.0 / 100 * level - 15)) : LoudnessOfSecond();
    const double loudness = std::min(wanted, LoudestLevel);
    for (const ChordNote& note : Chord) {
        const double hertz = root * std::pow(SemitoneRatio, note.Semitones);
        MidiNoteOnFrequency(note.Channel, hertz, static_cast<int>(Round(loudness * note.Share)));
    }
    sessionChordSounds = !test;
}

void EndMidiChord() {
    if (sessionChordSounds)
        SilenceMidi();
    sessionChordSounds = false;
}

void ResetMidiChord() {
    sessionChordSounds = false;
}

} // namespace pulselark
