#include "app/RecordOptions.h"
#include "app/TimerRunner.h"
#include "persistence/LiveRecordFile.h"
#include "persistence/SaveSession.h"
#include "platform/ProgramFolder.h"
#include "platform/monitors/StandardMonitors.h"
#include "platform/monitors/SystemMonitors.h"
#include "platform/system/ConsolePlatform.h"
#include "platform/system/FindProgramFolder.h"
#include "session/Connection.h"
#include "session/JournalKeeper.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Monitor.h"
#include "session/MonitorChoice.h"
#include "session/Recording.h"
#include "session/Settings.h"
#include "session/StartUp.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

namespace pulselark {

namespace {

// A monitor that has not given a sample by then gives none.
constexpr std::int64_t PatienceForSamples = 60000;

volatile std::sig_atomic_t endWanted = 0;
std::string whyUnread; // the file that is to be replayed
std::string lastWord;  // of a monitor that gave nothing

// The system's clock, or one that goes as fast as the recording is worked.
class RecordClock final : public Clock {
public:
    explicit RecordClock(bool fast) : fast_(fast), now_(system_.Milliseconds()) {}
    std::int64_t Milliseconds() override { return fast_ ? now_ : system_.Milliseconds(); }
    double FineMilliseconds() override { return system_.FineMilliseconds(); }
    std::string LocalDate() override { return system_.LocalDate(); }
    std::string LocalTime() override { return system_.LocalTime(); }
    std::string Stamp() override { return system_.Stamp(); }
    void Pass(std::int64_t milliseconds, const RecordWorld& world) {
        if (fast_)
            now_ += milliseconds;
        else
            world.Wait(static_cast<int>(milliseconds));
    }

private:
    SystemClock system_;
    bool fast_;
    std::int64_t now_;
};

// Channel B is recorded if the monitor has one.
void StartWithAllChannels() {
    ChannelMode = 1;
    ChannelBPresent = On;
    StartRecording();
    if (MonitorChannels() < 2) {
        ChannelMode = 2;
        ChannelBPresent = Off;
    }
}

// That a crash would lose this recording is told once.
void TellJournalFailure() {
    if (!timTellJournal.Enabled)
        return;
    timTellJournal.Enabled = false;
    std::fprintf(stderr, "pulselark: %s%d (%s, %s). %s\n", LanguageText(TextJournalFailed).c_str(),
                 static_cast<int>(JournalFailure), FailureText(JournalFailure), JournalName().c_str(),
                 LanguageText(TextJournalFailedSafe).c_str());
}

// Runs until so many seconds are recorded, the user ends it, or the monitor gives nothing.
void Record(Long seconds, RecordClock& clock, const RecordWorld& world) {
    TimerRunner timers(SessionTimers());
    const std::int64_t start = clock.Milliseconds();
    while (timProcess.Enabled) {
        TellJournalFailure();
        const std::int64_t wait = timers.RunDue(clock.Milliseconds());
        const bool hopeless = !SamplesHaveCome() && clock.Milliseconds() - start > PatienceForSamples;
        if (hopeless)
            lastWord = MonitorText();
        if (RecordedSeconds >= seconds || endWanted != 0 || hopeless)
            StopRequested = On;
        if (timProcess.Enabled)
            clock.Pass(wait, world);
    }
    CloseMonitor();
    SessionSeconds = RecordedSeconds = std::min(RecordedSeconds, seconds);
}

std::string Behind(const std::string& text) {
    return text.empty() ? text : ": " + text;
}

// The output cannot be written: the recording is left where it can be had from.
int KeepOutOfHarm(const RecordOptions& options, Integer failure) {
    ComplainOfFile(options.Out, failure, 0);
    CloseJournal();
    if (JournalFailure == 0)
        return Complain("the recording is kept in " + JournalName() +
                            "; pulselark recover --out FILE.hti gives it back",
                        ExitFailure);
    std::error_code error;
    const std::string elsewhere = std::filesystem::temp_directory_path(error).string() + "/";
    for (const std::string& folder : {SessionsFolder, elsewhere}) {
        const std::string name = folder + "recording-" + ThePlatform().Clock.Stamp() + ".hti";
        if (WriteSessionFile(name) != 0)
            continue;
        DiscardJournal();
        return Complain("the recording was saved as " + name, ExitFailure);
    }
    return Complain("only the beginning of the recording is left; see pulselark recover --list", ExitFailure);
}

int Finish(const RecordOptions& options) {
    if (SessionSeconds < 1) {
        DiscardJournal();
        return Complain(options.Monitor + ": no second has come from the monitor" + Behind(lastWord),
                        ExitFailure);
    }
    if (const Integer failure = WriteSessionFile(options.Out); failure != 0)
        return KeepOutOfHarm(options, failure);
    DiscardJournal();
    std::printf("%s: %d seconds\n", options.Out.c_str(), static_cast<int>(SessionSeconds));
    return ExitSuccess;
}

bool ReadForReplay(const std::string& file, LiveRecord& record) {
    const RecordOutcome outcome = ReadLiveRecord(file, record);
    whyUnread = outcome.Line > 0 ? "line " + std::to_string(outcome.Line) + ": " : "";
    whyUnread += outcome.Why.empty() ? FailureText(outcome.Number) : outcome.Why;
    if (outcome.Number == 0)
        whyUnread.clear();
    return outcome.Number == 0;
}

void TellPortCode(Long code) {
    Complain(LanguageText(TextMonitorPortCode) + std::to_string(code), ExitFailure);
}

// A terminal that goes ends the recording as its keys do; a reader of the messages that goes ends nothing.
void HearSignals() {
    const auto wantEnd = [](int) { endWanted = 1; };
    std::signal(SIGINT, wantEnd);
    std::signal(SIGTERM, wantEnd);
    if (std::signal(SIGHUP, wantEnd) == SIG_IGN)
        std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

// What the status line would say while the recording runs.
void TellStatus() {
    if (SessionRunning != Off && !labStatus.Caption.empty())
        std::fprintf(stderr, "pulselark: %s\n", labStatus.Caption.c_str());
}

} // namespace

int RunRecord(Arguments arguments, const RecordWorld& world) {
    std::string problem;
    const auto options = ParseRecordOptions(arguments, problem);
    if (!options)
        return Complain(problem, ExitUsage);
    RecordClock clock(options->Fast);
    SystemFiles files;
    SystemMonitors monitors(files, [] { return std::string(); });
    world.AddMonitors(monitors, {.Clock = clock,
                                 .Words = &TextOfMonitorWord,
                                 .ReadRecord = &ReadForReplay,
                                 .SerialPort = SerialPort,
                                 .TellPortRefused = &TellPortCode});
    const ConsolePlatform platform(&clock, monitors);
    SetProgramFolder(FindProgramFolder());
    InitApplication(false);
    AutoEndSession = Off;
    MonitorName = options->Monitor;
    problem = ApplyRecordOptions(*options, monitors);
    if (!problem.empty())
        return Complain(problem, ExitUsage);
    if (const Integer failure = files.TryReplace(options->Out); failure != 0)
        return ComplainOfFile(options->Out, failure, 0);
    HearSignals();
    StartWithAllChannels();
    if (SessionRunning == Off)
        return Complain(labStatus.Caption + Behind(whyUnread), ExitFailure);
    AfterStatus = &TellStatus;
    Record(options->Seconds, clock, world);
    AfterStatus = nullptr;
    return Finish(*options);
}

} // namespace pulselark
