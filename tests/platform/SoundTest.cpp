#include "app/Commands.h"
#include "base/Numbers.h"
#include "platform/audio/MixerMediaControl.h"
#include "platform/midi/MidiWord.h"
#include "platform/midi/Synthesizer.h"
#include "platform/midi/SystemMidiOutput.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <thread>
#include <unistd.h>
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

// A WAVE file of silence, 8-bit mono at 8000 samples a second.
std::string SilentWave(double seconds) {
    const auto samples = static_cast<std::uint32_t>(8000 * seconds);
    std::string bytes = "RIFF";
    const auto number = [&bytes](std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i)
            bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
    };
    number(36 + samples, 4);
    bytes += "WAVEfmt ";
    for (const auto& [value, count] :
         {std::pair{16U, 4}, {1U, 2}, {1U, 2}, {8000U, 4}, {8000U, 4}, {1U, 2}, {8U, 2}})
        number(value, count);
    bytes += "data";
    number(samples, 4);
    return bytes + std::string(samples, '\x80');
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

// A real song of a second and a half, on the silent driver: its time goes on, it can be wound, and it ends.
// The wait is for the clock of the driver, with a deadline.
TEST(MixerMediaControl, PlaysAShortSongToItsEndWithoutADevice) {
    const auto name = (std::filesystem::temp_directory_path() / "pulselark-song-XXXXXX").string();
    std::string path = name;
    const int file = ::mkstemp(path.data());
    ASSERT_GE(file, 0);
    const std::string song = SilentWave(1.5);
    ASSERT_EQ(::write(file, song.data(), song.size()), static_cast<ssize_t>(song.size()));
    ::close(file);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    MixerMediaControl player;
    EXPECT_EQ(player.Duration(), 0);
    EXPECT_EQ(player.Load(path + ".none"), FailureFileNotFound);
    ASSERT_EQ(player.Load(path), 0);
    EXPECT_NEAR(player.Duration(), 1.5, 0.02);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    const auto reaches = [&](double seconds) {
        while (player.Position() < seconds && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        return player.Position() >= seconds;
    };
    EXPECT_TRUE(reaches(0.3));
    player.SetPosition(0);
    EXPECT_LT(player.Position(), 0.3);
    EXPECT_TRUE(reaches(0.5)); // within a second of the end, which ends a song
    player.Stop();
    EXPECT_EQ(player.Position(), 0); // else the next song would begin where this one has ended
    player.SetPosition(1);           // the library finds whole seconds only in a WAVE file
    player.Play();
    EXPECT_GE(player.Position(), 1);
    player.Stop();
    ASSERT_EQ(player.Load(path), 0);
    EXPECT_LT(player.Position(), 0.5);
    player.Stop();
    std::filesystem::remove(path);
}

} // namespace
} // namespace pulselark
