#include "session/Recovery.h"

#include "feedback/FeedbackModes.h"
#include "persistence/RecordingJournal.h"
#include "persistence/SaveSession.h"
#include "session/JournalKeeper.h"
#include "session/Recording.h"
#include "support/LiveTest.h"
#include "support/Signals.h"

#include <limits>

namespace pulselark {
namespace {

class Recovery : public LiveTest {
protected:
    // The program is gone in this very moment; what it has given to the system is on the disk.
    void Kill() {
        PutEverythingBack();
        Outside.Disk.Held.clear();
        InstallTimerHandlers();
        MonitorName = "fake";
        SessionsFolder = "/Sessions/";
        AutoEndSession = Off;
    }
};

TEST_F(Recovery, AKilledRecordingComesBackAndIsContinued) {
    ChannelMode = 1;
    ChannelBPresent = On;
    Monitor().Channels = 2;
    Record(60700);
    const EcgBuffer ecg = EcgA;
    const SecondsBuffer ibi = IbiA;
    EXPECT_TRUE(LeftRecordings().empty()); // it is this program's own
    Kill();
    ASSERT_EQ(LeftRecordings().size(), 1U);
    EXPECT_EQ(LeftRecordings()[0].Seconds, 61);
    EXPECT_TRUE(LeftRecordings()[0].ChannelB);
    EXPECT_EQ(LeftRecordings()[0].Date, "21/11/2026");
    Outside.Boxes.Answers = {ButtonYes, ButtonNo};
    OfferLeftRecording();
    ASSERT_EQ(Outside.Boxes.Shown.size(), 2U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "<337>21/11/2026 17:45, 01:01<338>");
    EXPECT_EQ(Outside.Boxes.Shown[1].Text, "<339>");
    EXPECT_EQ(SessionSeconds, 61);
    EXPECT_NE(SessionUnsaved, Off);
    EXPECT_NE(ChannelBPresent, Off);
    for (Long i = 1; i <= 60 * 128; ++i)
        ASSERT_EQ(EcgA[i], ecg[i]) << i;
    for (Long second = 1; second <= 60; ++second)
        ASSERT_EQ(IbiA[second], ibi[second]) << second;
    EXPECT_GT(CoherenceA[60], 0);
    EXPECT_EQ(picReplay.Frame, FrameReplayRest);

    Timers.Advance(30000);
    Press(); // and it goes on, after the gap
    EXPECT_EQ(Outside.Boxes.Shown.size(), 2U);
    Timers.Advance(20500);
    EXPECT_EQ(RecordedSeconds, 61 + 5 + 20);
    EXPECT_EQ(EcgA[64 * 128], 0);
    EXPECT_NEAR(IbiA[80], 0.8, 0.005);
    EXPECT_NEAR(IbiB[80], 0.8, 0.005);
    Kill();
    ASSERT_EQ(LeftRecordings().size(), 1U);
    EXPECT_EQ(RestoreRecording(LeftRecordings()[0].Name), 0);
    EXPECT_NEAR(SessionSeconds, 61 + 5 + 20, 1);
    EXPECT_EQ(EcgA[1000], ecg[1000]);
    EXPECT_NEAR(IbiA[80], 0.8, 0.005);
    Outside.Dialogs.Answers = {"/saved.hti"};
    SaveSession();
    EXPECT_EQ(LastFileResult, FileSuccess);
    EXPECT_TRUE(LeftRecordings().empty());
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 0U);
}

TEST_F(Recovery, InTrainingItsNextLevelGoesOnWithTheRecording) {
    Record(40000);
    Kill();
    TrainingActive = On;
    FeedbackEnabled = On; // as a start sets it
    Outside.Boxes.Answers = {ButtonYes, ButtonNo};
    OfferLeftRecording();
    ClickModeButton(2, LeftButton);
    Timers.Advance(3500);
    EXPECT_NE(SessionRunning, Off);
    EXPECT_EQ(RecordedSeconds, 40 + 5 + 3);
}

TEST_F(Recovery, KilledInAnyTickNoMoreThanASecondIsMissing) {
    Monitor().LoseEvery = 200; // with a value that no journal takes
    Monitor().LostAs = std::numeric_limits<float>::infinity();
    Press();
    for (int tick = 1; tick < 600; ++tick) {
        Timers.Advance(20);
        JournalContent content;
        const bool read = ReadJournal(Journal(), content);
        ASSERT_TRUE(read);
        ASSERT_GE(JournalSeconds(content) * 1000, tick * 20 - 1000) << tick;
        ASSERT_GE(static_cast<Long>(content.EcgA.size()) * 1000 / 128, tick * 20 - 200) << tick;
    }
}

TEST_F(Recovery, TheJournalGoesWithTheSession) {
    RecordAndStop(20);
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 1U);
    Outside.Dialogs.Answers = {std::nullopt};
    SaveSession();
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 1U); // not saved
    Outside.Dialogs.Answers = {"/saved.hti"};
    SaveSession();
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 0U);
    RecordAndStop(20);
    Outside.Boxes.Answers = {ButtonNo}; // the next recording's journal takes its place
    Press();
    Timers.Advance(2000);
    JournalContent content;
    ASSERT_TRUE(ReadJournal(Journal(), content));
    EXPECT_LT(content.EcgA.size(), 3U * 128);
}

TEST_F(Recovery, NoDeletesCancelKeepsAndHeldOnesAreNotOffered) {
    RecordAndStop(20);
    Kill();
    Outside.Boxes.Answers = {ButtonCancel};
    OfferLeftRecording();
    EXPECT_EQ(SessionSeconds, 0);
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 1U);
    Outside.Disk.Held.insert(JournalFile); // another program records
    OfferLeftRecording();
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    Outside.Disk.Held.clear();
    MakeSession(10); // a session was opened with the program
    OfferLeftRecording();
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    SessionSeconds = 0;
    Outside.Boxes.Answers = {ButtonNo};
    OfferLeftRecording();
    EXPECT_EQ(Outside.Disk.Content.count(JournalFile), 0U);
    Outside.Disk.Content["/Sessions/.recording-1.journal"] = "torn before it began";
    OfferLeftRecording();
    EXPECT_EQ(Outside.Boxes.Shown.size(), 2U);
}

TEST_F(Recovery, AFullDiskIsToldAtOnceAndTheRecordingGoesOn) {
    Outside.Disk.DiskSize = 30000;
    Press();
    bool told = false;
    for (int second = 1; second <= 120; ++second) {
        Timers.Advance(1000);
        const bool full = Journal().size() >= 30000;
        if (full)
            Timers.Advance(1100); // a second's end later at the latest
        told = !Outside.Boxes.Shown.empty();
        ASSERT_EQ(told, full) << second;
        if (full)
            break;
    }
    ASSERT_TRUE(told);
    EXPECT_TRUE(Outside.Boxes.Shown[0].Text.starts_with("<334>61")) << Outside.Boxes.Shown[0].Text;
    EXPECT_EQ(Outside.Boxes.Shown[0].Text.substr(Outside.Boxes.Shown[0].Text.size() - 5), "<342>");
    const Long before = RecordedSeconds;
    Timers.Advance(100000);
    EXPECT_EQ(RecordedSeconds, before + 100);
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    Press();
    Timers.Advance(20);
    Outside.Disk.DiskSize = 100000000;
    Outside.Dialogs.Answers = {"/saved.hti"};
    SaveSession();
    EXPECT_EQ(LastFileResult, FileSuccess);

    Outside.Disk.WriteFailure = FailurePermissionDenied; // not even a file
    Press();
    Timers.Advance(2000);
    EXPECT_NE(SessionRunning, Off);
    EXPECT_TRUE(Outside.Boxes.Shown.back().Text.starts_with("<334>70"));
}

} // namespace
} // namespace pulselark
