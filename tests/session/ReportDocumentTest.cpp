#include "session/ReportDocument.h"

#include "persistence/OpenSession.h"
#include "persistence/SaveSession.h"
#include "persistence/SessionFile.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

constexpr int OkCancel = ButtonOK | ButtonCancel;

class Document : public SessionTest {
protected:
    static bool Active(const Label& button) { return button.ForeColour == 0x404040; }
    static std::string Boxes() {
        std::string all;
        for (const TextBox& box : tbSD)
            all += box.Text + "|";
        return all;
    }
    // A stored session with a document, its lock field as given.
    void Store(const std::string& name, const std::string& lock) {
        MakeSession(5);
        for (std::size_t i = 0; i < 12; ++i)
            SessionInfo[i] = "f" + std::to_string(i);
        SessionInfo[19] = "0";
        SessionInfo[20] = lock;
        Outside.Disk.Content[name] = SessionText();
    }
    void Save(const std::string& name) {
        Outside.Dialogs.Answers = {name};
        SaveSession();
        ASSERT_EQ(LastFileResult, FileSuccess);
    }
};

constexpr const char* AllFields = "f0|f1|f2|f3|f4|f5|f6|f7|f8|f9|f10|f11|";

TEST_F(Document, IsClearedAtTheStartAndRefusesTheCopyUntilSomethingIsTyped) {
    EXPECT_EQ(Boxes(), "||||||||||||");
    EXPECT_EQ(SessionInfo[19] + SessionInfo[20], "10");
    EXPECT_TRUE(imMF[0].Visible);
    EXPECT_FALSE(imMF[1].Visible || imLockDoc.Visible || Active(labCopyDoc) || Active(labClrDoc));
    CopyReport();
    AskAndClearReport();
    EXPECT_EQ(ReportClipboardFull, Off);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());

    EditReportField(0, "Rest");
    EXPECT_TRUE(Active(labCopyDoc) && Active(labClrDoc));
    EXPECT_FALSE(Active(labPasteDoc)); // there is no copy yet
    EXPECT_EQ(SessionUnsaved, On);
    CopyReport();
    EXPECT_TRUE(Active(labPasteDoc));
    EXPECT_EQ(SessionInfoClipboard[0], "Rest");
}

TEST_F(Document, AnSInDateOrTimeStampsBoth) {
    EditReportField(0, "session"); // an s elsewhere is only a letter
    EditReportField(3, "S");
    EXPECT_EQ(Boxes(), "session|||S|||||||||");
    EditReportField(4, "about ten, it seems");
    EXPECT_EQ(tbSD[3].Text + tbSD[4].Text, "21/11/202617:45");
    Outside.Time.Time = "18:00";
    EditReportField(4, "noon");
    EXPECT_EQ(tbSD[4].Text, "noon");
    EditReportField(3, "s");
    EXPECT_EQ(tbSD[4].Text, "18:00"); // either box asks for both
    Outside.Time.Date = "22/11/2026";
    SessionUnsaved = Off;
    StampReport();
    EXPECT_EQ(tbSD[3].Text, "22/11/2026");
    EXPECT_EQ(SessionUnsaved, On);
}

TEST_F(Document, ALockedOneTakesNothing) {
    EditReportField(1, "Ada");
    ChooseReportSymbol(1);
    CopyReport();
    EditReportField(1, "Ida");
    TurnReportLock();
    EXPECT_EQ(SessionInfo[1] + SessionInfo[19] + SessionInfo[20], "Ida01");
    EXPECT_TRUE(imLockDoc.Visible);
    EXPECT_FALSE(Active(labClrDoc) || Active(labPasteDoc));
    SessionUnsaved = Off;
    EditReportField(1, "Eve");
    EditReportField(3, "s");
    StampReport();
    ChooseReportSymbol(0);
    PasteReport();
    AskAndClearReport();
    EXPECT_EQ(Boxes(), "|Ida|||||||||||");
    EXPECT_TRUE(imMF[1].Visible);
    EXPECT_EQ(SessionUnsaved, Off);
    CopyReport(); // reading is free
    EXPECT_EQ(SessionInfoClipboard[1], "Ida");
    EXPECT_FALSE(Active(labPasteDoc));

    TurnReportLock(); // nobody asks: it came from no file
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_FALSE(imLockDoc.Visible);
    EXPECT_TRUE(Active(labClrDoc) && Active(labPasteDoc));
}

TEST_F(Document, ClearingAsks) {
    EditReportField(11, "x");
    Outside.Boxes.Answers = {ButtonCancel};
    AskAndClearReport();
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<262>", OkCancel}}));
    EXPECT_EQ(tbSD[11].Text, "x");
    ChooseReportSymbol(1);
    AskAndClearReport();
    EXPECT_EQ(Boxes(), "||||||||||||");
    EXPECT_TRUE(imMF[0].Visible);
    EXPECT_FALSE(Active(labClrDoc) || Active(labCopyDoc));
    EXPECT_EQ(SessionUnsaved, On);
}

TEST_F(Document, OneThatWasReadIsCopiedToAnotherSession) {
    Store("a.hti", "1");
    Store("b.hti", "0");
    PutEverythingBack();
    OpenSessionFile("a.hti");
    EXPECT_EQ(Boxes(), AllFields);
    EXPECT_TRUE(imLockDoc.Visible && imMF[1].Visible && !imMF[0].Visible && Active(labCopyDoc));
    EXPECT_EQ(labFN.Caption, "<314>a.hti");
    EXPECT_EQ(SessionUnsaved, Off);
    CopyReport();

    OpenSessionFile("b.hti"); // any lock but "1" is none
    EXPECT_EQ(ReportLocked, Off);
    EXPECT_TRUE(Active(labPasteDoc) && Active(labClrDoc));
    AskAndClearReport();
    PasteReport();
    EXPECT_EQ(Boxes(), AllFields);
    EXPECT_TRUE(imMF[0].Visible); // the symbol stays behind
    EXPECT_FALSE(Active(labPasteDoc) || Active(labCopyDoc));
    EXPECT_EQ(SessionUnsaved, On);
    EXPECT_EQ(ReportLocked, Off);
    TurnReportLock();
    TurnReportLock();
    EXPECT_FALSE(Active(labPasteDoc)); // once is enough until a box is edited
    EditReportField(0, "new");
    EXPECT_TRUE(Active(labPasteDoc) && Active(labCopyDoc));
}

TEST_F(Document, UnlockingAStoredOneAsks) {
    Store("a.hti", "1");
    OpenSessionFile("a.hti");
    Outside.Boxes.Answers = {ButtonCancel};
    TurnReportLock();
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<263>", OkCancel}}));
    EXPECT_EQ(ReportLocked, On);
    TurnReportLock();
    EXPECT_EQ(ReportLocked, Off);
    EXPECT_EQ(SessionUnsaved, Off); // looking is no change
    EditReportField(2, "P-17");

    Save("c.hti");
    EXPECT_EQ(SessionInfo[20], "1");
    EXPECT_TRUE(imLockDoc.Visible);
    EXPECT_FALSE(Active(labClrDoc));
    EXPECT_EQ(labFN.Caption, "<314>c.hti");
    PutEverythingBack();
    Outside.Boxes.Shown.clear();
    Outside.Disk.WriteFailure = 0;
    OpenSessionFile("c.hti");
    EXPECT_EQ(Boxes(), "f0|f1|P-17|f3|f4|f5|f6|f7|f8|f9|f10|f11|");
    EXPECT_EQ(ReportLocked, On);
}

TEST_F(Document, OneThatCouldNotBeSavedStaysOpen) {
    MakeSession(5);
    EditReportField(0, "Rest");
    Outside.Disk.WriteFailure = 61;
    Outside.Dialogs.Answers = {"a.hti"};
    SaveSession();
    EXPECT_EQ(ReportLocked, Off);
    EditReportField(0, "Rest, again");
    EXPECT_EQ(tbSD[0].Text, "Rest, again");
}

TEST_F(Document, ADamagedFileLeavesNoneBehind) {
    Store("a.hti", "1");
    OpenSessionFile("a.hti");
    Outside.Disk.Content["b.hti"] = Outside.Disk.Content["a.hti"].substr(0, 400);
    OpenSessionFile("b.hti");
    EXPECT_EQ(Boxes(), "||||||||||||");
    EXPECT_FALSE(imLockDoc.Visible);
    EXPECT_EQ(labFN.Caption, "<314>noname");
}

} // namespace
} // namespace pulselark
