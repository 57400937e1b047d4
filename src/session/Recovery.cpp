#include "session/Recovery.h"

#include "analysis/HRV.h"
#include "analysis/PanelDrawing.h"
#include "feedback/ModeSelector.h"
#include "feedback/ggz.h"
#include "persistence/FileMessages.h"
#include "persistence/RecordingJournal.h"
#include "persistence/SaveSession.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Recording.h"
#include "session/RedrawPanels.h"
#include "session/ReportDocument.h"
#include "session/Rescan.h"
#include "session/SessionButtons.h"

#include <algorithm>

namespace pulselark {

namespace {

// Samples up to the end of the last second; what is missing there keeps the line where it was. A channel that
// has left the recording before lies at 0.
void FillSamples(EcgBuffer& ecg, const std::vector<float>& samples, Long seconds) {
    const auto count = static_cast<std::size_t>(seconds) * SamplesPerSecond;
    const std::size_t known = std::min(samples.size(), count);
    std::copy_n(samples.begin(), known, ecg.begin());
    if (known > 0 && count - known < SamplesPerSecond)
        std::fill_n(ecg.begin() + static_cast<std::ptrdiff_t>(known), count - known, samples[known - 1]);
}

// A second whose interval was not written any more keeps the last one.
void FillIntervals(SecondsBuffer& ibi, const std::vector<float>& intervals, Long seconds) {
    float last = 1.0F;
    for (Long second = 1; second <= seconds; ++second) {
        const auto place = static_cast<std::size_t>(second) - 1;
        if (place < intervals.size() && intervals[place] > 0)
            last = intervals[place];
        ibi[second] = last;
    }
}

void FillBuffers(const JournalContent& content) {
    ResetSessionBuffers();
    SessionSeconds = std::min(JournalSeconds(content), LongestSession);
    ChannelBPresent = ToBoolean(!content.EcgB.empty());
    ChannelMode = ChannelBPresent == Off && content.Head.Mode == 1 ? Integer{2} : content.Head.Mode;
    SessionInfo = content.Head.Info;
    FillSamples(EcgA, content.EcgA, SessionSeconds);
    FillIntervals(IbiA, content.IbiA, SessionSeconds);
    if (ChannelBPresent == Off)
        return;
    FillSamples(EcgB, content.EcgB, SessionSeconds);
    FillIntervals(IbiB, content.IbiB, SessionSeconds);
}

void ShowRestored() {
    RescanSession(true);
    CalcHrvA(); // no tick comes that would
    CalcHrvB();
    ShowReportFields();
    labChannelMode.Caption = LanguageText(TextChannelModeBase + ChannelMode);
    SessionTick = 1;
    OpenAllPanels(true);
    RedrawAllPanels();
    RefreshSessionButtons(true);
    ShowStatus(SessionName + LanguageText(TextRecovered));
}

// Reads a journal; 0 or the number of the failure, 13 for one that is none.
Integer ReadJournalFile(const std::string& name, std::string& bytes, JournalContent& content) {
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0)
        return failure;
    return ReadJournal(bytes, content) ? Integer{0} : Integer{FailureTypeMismatch};
}

std::string Described(const LeftRecording& left) {
    return left.Date + " " + left.Time + ", " + FormatMinSec(left.Seconds);
}

} // namespace

std::vector<LeftRecording> LeftRecordings(std::vector<std::string>* unreadable) {
    Files& files = ThePlatform().Files;
    std::vector<std::string> names;
    files.ListFolder(SessionsFolder.substr(0, SessionsFolder.find_last_not_of('/') + 1), JournalExtension,
                     names);
    std::vector<LeftRecording> found;
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        const std::string whole = SessionsFolder + *name;
        std::string bytes;
        JournalContent content;
        if (!name->starts_with(JournalPrefix) || files.HeldToGrow(whole))
            continue;
        const Integer failure = ReadJournalFile(whole, bytes, content);
        const Long seconds = JournalSeconds(content);
        if (failure == 0 && seconds < 1)
            files.Remove(whole);
        else if (failure == 0)
            found.push_back({whole, content.Head.Date, content.Head.Time, content.Head.Monitor, seconds,
                             !content.EcgB.empty()});
        else if (unreadable != nullptr)
            unreadable->push_back(whole);
    }
    return found;
}

Integer RestoreRecording(const std::string& name) {
    std::string bytes;
    JournalContent content;
    if (const Integer failure = ReadJournalFile(name, bytes, content); failure != 0)
        return failure;
    FillBuffers(content);
    SessionName = "noname";
    SessionUnsaved = On;
    if (MonitorName == NoMonitorYet)
        MonitorName = content.Head.Monitor; // the settings of the lost start were not kept
    PauseAsRecorded();
    GoOnWithJournal(name, bytes.substr(0, content.WholeBytes));
    ShowRestored();
    if (TrainingActive != Off) {
        FeedbackEnabled = Off; // its next level goes on with the recording
        SetModeTips();
        TickTraining();
    }
    return 0;
}

void OfferLeftRecording() {
    const auto left = LeftRecordings();
    if (left.empty() || SessionSeconds > 0 || SessionRunning != Off)
        return;
    Messages& messages = ThePlatform().Messages;
    const int answer = messages.Show(LanguageText(TextRecoverFound) + Described(left.front()) +
                                         LanguageText(TextRecoverQuestion),
                                     ButtonYes | ButtonNo | ButtonCancel, {MessageKind::Question, ButtonNo});
    if (answer == ButtonNo)
        ThePlatform().Files.Remove(left.front().Name);
    if (answer != ButtonYes)
        return;
    if (const Integer failure = RestoreRecording(left.front().Name); failure != 0) {
        ShowFileFailure(LanguageText(TextRecoverFailed), {failure, 0}, left.front().Name, "");
        return;
    }
    if (messages.Show(LanguageText(TextRecoverSave), ButtonYes | ButtonNo) == ButtonYes)
        SaveSession();
}

} // namespace pulselark
