#include "feedback/FeedbackModes.h"
#include "feedback/MIDI_CMD.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiChord.h"
#include "feedback/MidiSwitches.h"
#include "feedback/SoundTester.h"
#include "feedback/WMPPlay.h"
#include "platform/ProgramFolder.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/ShutDown.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

using Words = std::vector<std::uint32_t>;

constexpr std::uint32_t Probe = 0x00013290;
const Words BothOff{0x000078B0, 0x00007BB0, 0x000078B1, 0x00007BB1};

class Midi : public SessionTest {
protected:
    Midi() {
        ResetMidiOutput();
        ResetMidiChord();
        ResetMidiSwitches();
        ResetSoundTester();
        Outside.Midi.Names = {"piano", "", "organ"};
        FillMidiDevices(lstMidiDevice);
    }
    // The words of one chord after the probe and the notes off.
    Words Chord() {
        Outside.Midi.Words.clear();
        MidiReady = On;
        PlayMidiChord(false, 0, 0);
        const Words& sent = Outside.Midi.Words;
        EXPECT_EQ(sent.size(), 13U);
        EXPECT_EQ(sent.front(), Probe);
        EXPECT_EQ(Words(sent.begin() + 1, sent.begin() + 5), BothOff);
        return {sent.begin() + 5, sent.end()};
    }
};

TEST_F(Midi, ChordOfASecondFollowsPeakAndCoherence) {
    AnalysisSecond = 100;
    PeakIndexA = 56;               // 16384 / 56 = 292.6: 293 Hz, note 62 (d')
    CoherenceAvgA[101] = 0.04986F; // 37: velocities 18.5 and 12.2
    CoherenceAvgA[100] = 0.11F;    // the second itself has no say
    const Words expected{0x00123E90, 0x00123E91, 0x000C3990, 0x00124290,
                         0x00124590, 0x000C3991, 0x00124291, 0x00124591};
    EXPECT_EQ(Chord(), expected);

    CoherenceAvgA[101] = 0.5F; // far above the cap: 50 and 33
    EXPECT_EQ(Chord()[0], 0x00323E90U);
    EXPECT_EQ(Chord()[2], 0x00213990U);

    CoherenceAvgA[101] = 0; // -15: velocities -8 and -5 in two's complement
    EXPECT_EQ(Chord()[0], 0xFFF83E90U);
    EXPECT_EQ(Chord()[2], 0xFFFB3990U);

    PeakIndexA = 0; // no rhythm: note 0 eight times
    for (const std::uint32_t word : Chord())
        EXPECT_EQ(word & 0xFF00U, 0U);
}

TEST_F(Midi, TrainingTakesItsOwnLoudness) {
    TrainingActive = On;
    AnalysisSecond = 100;
    PeakIndexA = 56;
    CoherenceAvgA[101] = 0.04986F;
    DynamicIndex = 80;
    FeedbackMode = 2;
    EXPECT_EQ(Chord()[0] >> 16, 18U);
    FeedbackMode = 3;
    EXPECT_EQ(Chord()[0] >> 16, 40U);
    FeedbackMode = 1;
    EXPECT_EQ(Chord()[0] >> 16, 0U);
}

TEST_F(Midi, AnOutputThatIsNotReadyGetsTheProbeOnly) {
    PlayMidiChord(false, 0, 0);
    EXPECT_EQ(Outside.Midi.Words, Words{Probe});
    MidiReady = On;
    Outside.Midi.SendFailure = FailureDeviceIO;
    PlayMidiChord(false, 0, 0);
    EXPECT_EQ(Outside.Midi.Words, (Words{Probe, Probe}));
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
}

TEST_F(Midi, ReplayTicksSoundWhenWantedAndFallSilentAtItsEnd) {
    MakeSession(6);
    OpenMidiOutput();
    Outside.Midi.Words.clear();
    StartReplay(false);
    Timers.Advance(1000);
    EXPECT_TRUE(Outside.Midi.Words.empty());
    MidiInPanels = On;
    Timers.Advance(2000);
    EXPECT_EQ(Outside.Midi.Words.size(), 2 * 13U);
    EXPECT_EQ(Outside.Midi.Silences, 0);
    EndReplay();
    EXPECT_EQ(Outside.Midi.Silences, 1);
}

TEST_F(Midi, AChordThatIsNotRenewedIsEnded) {
    MakeSession(20);
    OpenMidiOutput();
    MidiInPanels = On;
    StartReplay(false);
    Timers.Advance(2000);
    TrainingActive = On; // where no sound is wanted
    Timers.Advance(3000);
    EXPECT_EQ(Outside.Midi.Silences, 1);
    TrainingActive = Off;
    Timers.Advance(1000);
    SelectFeedbackMode(0, true); // the click that ends the replay
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(Outside.Midi.Silences, 2);
}

// From outside there is nobody to ask, whatever the program is at.
TEST_F(Midi, AnEndBySignalLeavesNothingSounding) {
    MakeSession(20);
    SessionUnsaved = LoadingSession = DialogOpen = On;
    OpenMidiOutput();
    MidiInPanels = On;
    PlayMusic();
    EndProgram();
    EXPECT_GE(Outside.Midi.Silences, 1);
    EXPECT_EQ(Outside.Midi.Closes, 1);
    EXPECT_FALSE(Outside.Player.Runs);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_TRUE(Outside.Disk.Content.contains("config/app.oms"));
}

TEST_F(Midi, DevicesThatCannotBeAskedAreLeftOut) {
    ASSERT_EQ(lstMidiDevice.size(), 3U);
    EXPECT_EQ(lstMidiDevice[0].Id, -1);
    EXPECT_EQ(lstMidiDevice[2].Name, "organ");
    EXPECT_EQ(lstMidiDevice[2].Id, 2);
    ChooseMidiDevice(2);
    ChooseMidiDevice(3);
    EXPECT_EQ(Outside.Midi.Opened, std::vector<int>{2});
    EXPECT_EQ(MidiDeviceIndex, 2);
    EXPECT_EQ(MidiReady, Off); // it was chosen, not opened for chords

    Outside.Midi.OpenFailure = 57;
    ChooseMidiDevice(0);
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "failed 57");
}

TEST_F(Midi, AChosenDeviceStaysChosenWhereverItStands) {
    ChooseMidiDevice(2);
    Outside.Midi.Names = {"drum", "piano", "organ", "harp"};
    RefreshMidiDevices();
    EXPECT_EQ(lstMidiDevice[static_cast<std::size_t>(MidiDeviceIndex)].Name, "organ");
    Outside.Midi.Names = {"drum"}; // unplugged
    RefreshMidiDevices();
    EXPECT_EQ(MidiDeviceIndex, -1);
    ToggleMidiPanels();
    EXPECT_EQ(MidiInPanels, Off);
    ChooseMidiDevice(0);
    RefreshMidiDevices();
    EXPECT_EQ(MidiDeviceIndex, 0);
}

TEST_F(Midi, TheSwitchOpensTheOutputAndSoundsATest) {
    ToggleMidiPanels();
    EXPECT_EQ(MidiInPanels, On);
    EXPECT_EQ(Outside.Midi.Opened, std::vector<int>{-1});
    // Program 0 on both channels, the probe, notes off, and the chord on a' (69) at 115 % of 80 less 15: 77.
    const Words& sent = Outside.Midi.Words;
    ASSERT_EQ(sent.size(), 4 + 13U);
    EXPECT_EQ(Words(sent.begin(), sent.begin() + 4), (Words{0x000000B0, 0x000000C0, 0x000000B1, 0x000000C1}));
    EXPECT_EQ(sent[9], 0x00264590U);
    Timers.Advance(2499);
    EXPECT_EQ(sent.size(), 17U);
    Timers.Advance(1);
    EXPECT_EQ(Words(sent.end() - 4, sent.end()), BothOff);
    EXPECT_FALSE(timSoundsOff.Enabled);

    ToggleMidiPanels();
    EXPECT_EQ(MidiInPanels, Off);
    Outside.Midi.OpenFailure = FailureDeviceIO;
    ToggleMidiTraining();
    EXPECT_EQ(MidiInTraining, Off);
    ASSERT_EQ(Outside.Boxes.Shown.size(), 2U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "<171>");
    EXPECT_EQ(Outside.Boxes.Shown[1].Text, "<172>");
}

TEST_F(Midi, InstrumentsAreReadChosenAndHeard) {
    SetProgramFolder("/pl");
    Outside.Disk.Content["/pl/config/genmidi.txt"] = "Grand Piano\r\nBright Piano\nOrgan";
    LoadMidiInstruments();
    EXPECT_EQ(MidiInstrumentNames, (std::vector<std::string>{"Grand Piano", "Bright Piano", "Organ"}));
    OpenMidiOutput();
    Outside.Midi.Words.clear();
    ChooseMidiInstrument(2);
    ChooseMidiInstrument(6);
    EXPECT_TRUE(Outside.Midi.Words.empty());
    ChooseMidiInstrument(5);
    EXPECT_EQ(MidiInstrument, 2);
    const Words chosen{Probe, 0x000078B0, 0x000078B1, 0x000000B0, 0x000002C0, 0x000000B1, 0x000002C1};
    ASSERT_EQ(Outside.Midi.Words.size(), chosen.size() + 13);
    EXPECT_EQ(Words(Outside.Midi.Words.begin(), Outside.Midi.Words.begin() + 7), chosen);

    Outside.Midi.SendFailure = FailureDeviceIO;
    ChooseMidiInstrument(3);
    ChooseMidiInstrument(4);
    EXPECT_EQ(MidiInstrument, 2);
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U); // told once
}

TEST_F(Midi, ThePadSoundsOnceItHasMovedFarEnough) {
    OpenMidiOutput();
    Outside.Midi.Words.clear();
    DragSoundTester(1, 0); // 1.5 to the right
    EXPECT_TRUE(Outside.Midi.Words.empty());
    DragSoundTester(1, 0); // 3 in all: 440 - 3 Hz at 115 % of 50 less 15
    ASSERT_EQ(Outside.Midi.Words.size(), 1 + 4 + 13U);
    EXPECT_EQ(Outside.Midi.Words[10] & 0xFF00U, 69U << 8U);
    DragSoundTester(1000, 1000);
    EXPECT_EQ(SoundTesterX, 80);
    EXPECT_EQ(SoundTesterY, -45);
}

} // namespace
} // namespace pulselark
