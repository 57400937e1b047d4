#include "app/Commands.h"
#include "base/Numbers.h"
#include "platform/midi/MidiWord.h"
#include "platform/midi/Synthesizer.h"
#include "platform/midi/SystemMidiOutput.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace pulselark {
namespace {

// Strength of one frequency in a sound (Goertzel's algorithm under a Hann window), left channel.
double StrengthAt(const std::vector<float>& interleaved, double hertz) {
    const std::size_t frames = interleaved.size() / 2;
    const double step = 2 * std::numbers::pi * hertz / Synthesizer::SampleRate;
    double before = 0, last = 0;
    for (std::size_t i = 0; i < frames; ++i) {
        const double window =
            0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(frames));
        const double now = interleaved[2 * i] * window + 2 * std::cos(step) * last - before;
        before = last;
        last = now;
    }
    return std::sqrt(before * before + last * last - 2 * std::cos(step) * before * last);
}

std::vector<float> RenderedSecond(Synthesizer& synthesizer) {
    std::vector<float> sound(2 * std::size_t{Synthesizer::SampleRate});
    synthesizer.Render(sound);
    return sound;
}

TEST(Synthesizer, SoundsTheNotesItIsSentAndFallsSilent) {
    Synthesizer synthesizer;
    if (synthesizer.Load() != 0)
        GTEST_SKIP() << "no General MIDI sound font on this machine";
    for (const std::uint32_t note : {57U, 62U, 66U, 69U}) // a, d', f sharp', a'
        synthesizer.Send(0x00400090 + (note << 8U));
    const auto chord = RenderedSecond(synthesizer);
    double weakest = 1e9;
    for (const double hertz : {220.0, 293.66, 369.99, 440.0})
        weakest = std::min(weakest, StrengthAt(chord, hertz));
    // Tones between those of the chord, a quarter tone off and not among their overtones.
    for (const double hertz : {232.0, 277.18, 311.13, 349.23, 392.0})
        EXPECT_LT(StrengthAt(chord, hertz), weakest / 10) << hertz;

    synthesizer.Send(0x000078B0);
    RenderedSecond(synthesizer); // the reverberation dies away
    float loudest = 0;
    for (const float sample : RenderedSecond(synthesizer))
        loudest = std::max(loudest, std::abs(sample));
    EXPECT_LT(loudest, 1e-3F);
}

TEST(MidiBytes, HoldsWhatReachesADeviceToSevenBits) {
    const MidiBytes loud(0x00FF3E90);
    EXPECT_EQ(loud.Data2, 127);
    const MidiBytes negative(0xFFF83E91); // velocity -8
    EXPECT_EQ(negative.Status, 0x91);
    EXPECT_EQ(negative.Data1, 62);
    EXPECT_EQ(negative.Data2, 0);
    EXPECT_EQ(MidiBytes(0x000084C0).Data1, 127);
    EXPECT_EQ(MidiBytes(0x000004C0).Size(), 2);
}

TEST(SystemMidiOutput, AMachineWithoutSequencerOrSoundIsToldByNumber) {
    SystemMidiOutput output;
    const int devices = output.DeviceCount();
    EXPECT_FALSE(output.DeviceName(devices));
    EXPECT_NE(output.Open(devices + 3), 0);
    EXPECT_NE(output.Send(0x00404590), 0); // nothing is open
    output.Silence();
    EXPECT_EQ(output.Close(), 0);
    const Integer mapper = output.Open(MidiOutput::Mapper);
    EXPECT_EQ(output.Send(0x00404590) == 0, mapper == 0);
}

// Our own port, and a message through it to a device that listens: what a user's synthesizer gets.
TEST(SystemMidiOutput, OwnPortTakesMessages) {
    SystemMidiOutput output;
    const int devices = output.DeviceCount();
    if (devices == 0)
        GTEST_SKIP() << "no sequencer on this machine";
    EXPECT_EQ(output.DeviceName(devices - 1), "PulseLark");
    ASSERT_EQ(output.Open(devices - 1), 0);
    EXPECT_EQ(output.Send(0x00404590), 0);
}

} // namespace
} // namespace pulselark
