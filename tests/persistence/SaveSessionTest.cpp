#include "persistence/SaveSession.h"

#include "persistence/SessionFile.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

class Saving : public SessionTest {
protected:
    Saving() {
        MakeSession(20);
        SessionUnsaved = On;
        SessionInfo[20] = "0";
        SessionName = "before";
    }
};

TEST_F(Saving, AnUnchangedSessionIsNotSavedAgain) {
    SessionUnsaved = Off;
    SaveSession();
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<162>", ButtonOK}}));
    EXPECT_TRUE(Outside.Dialogs.Starts.empty());
}

TEST_F(Saving, ASavedDocumentIsLockedAndTakesItsName) {
    LastSaveFolder = "folder";
    Outside.Dialogs.Answers = {"s.hti"};
    SaveSession();
    EXPECT_EQ(Outside.Dialogs.Starts, std::vector<std::string>{"folder"});
    EXPECT_EQ(LastFileResult, FileSuccess);
    EXPECT_EQ(SessionUnsaved | SavingSession | DialogOpen, Off);
    EXPECT_EQ(SessionName + LastSaveFolder, "s.htis.hti");
    EXPECT_EQ(labStatus.Caption, "s.hti<138>");
    EXPECT_EQ(SessionInfo[20], "1");
    EXPECT_EQ(Outside.Disk.Content.at("s.hti"), SessionText());
}

TEST_F(Saving, ACancelledDialogIsNoFailure) {
    SaveSession();
    EXPECT_EQ(LastFileResult, 32755);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(SessionUnsaved, On);
    EXPECT_EQ(SessionInfo[20], "0");
}

TEST_F(Saving, AFailureIsToldAndLeavesTheSessionUnsaved) {
    Outside.Disk.Content["s.hti"] = "old";
    for (const Integer number : std::initializer_list<Integer>{52, 57, 61, 70, 75, 76}) {
        Outside.Boxes.Shown.clear();
        Outside.Dialogs.Answers = {"s.hti"};
        Outside.Disk.WriteFailure = number == 61 ? Integer{0} : number;
        Outside.Disk.DiskSize = 1000; // the disk ends within the file
        SaveSession();
        EXPECT_EQ(LastFileResult, number);
        ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
        const std::string& text = Outside.Boxes.Shown[0].Text;
        EXPECT_TRUE(text.starts_with("<163>_1 " + std::to_string(number) + "\n")) << text;
        EXPECT_NE(text.find("s.hti"), std::string::npos);
        EXPECT_EQ(labStatus.Caption, "<139>");
        EXPECT_EQ(SessionUnsaved, On);
        EXPECT_EQ(SavingSession, Off);
        EXPECT_EQ(SessionName, "before");
        EXPECT_EQ(SessionInfo[20], "0");
        EXPECT_EQ(Outside.Disk.Content.at("s.hti"), "old");
    }
}

} // namespace
} // namespace pulselark
