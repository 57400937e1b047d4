#include "app/Commands.h"
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
#include <charconv>
#include <csignal>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

namespace pulselark {

namespace {

constexpr Long LongestRecording = 3600;
// A monitor that has not given a sample by then gives none.
constexpr std::int64_t PatienceForSamples = 60000;

volatile std::sig_atomic_t endWanted = 0;

struct RecordOptions {
    std::string Monitor;
    std::vector<std::pair<std::string, std::string>> Settings;
    Long Seconds = 0;
    std::string Out;
    bool Fast = false;
};

bool TakeOption(const std::string& name, const std::string& value, RecordOptions& options) {
    if (name == "--monitor")
        options.Monitor = value;
    else if (name == "--out")
        options.Out = value;
    else if (name == "--option") {
        const std::size_t equals = value.find('=');
        if (equals == 0 || equals == std::string::npos)
            return false;
        options.Settings.emplace_back(value.substr(0, equals), value.substr(equals + 1));
    } else if (name == "--seconds") {
        const auto [rest, error] =
            std::from_chars(value.data(), value.data() + value.size(), options.Seconds);
        return error == std::errc() && rest == value.data() + value.size() && options.Seconds >= 1 &&
               options.Seconds <= LongestRecording;
    } else {
        return false;
    }
    return true;
}

std::optional<RecordOptions> ParseOptions(Arguments arguments) {
    RecordOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--fast")
            options.Fast = true;
        else if (i + 1 >= arguments.size() || !TakeOption(arguments[i], arguments[i + 1], options))
            return std::nullopt;
        else
            ++i;
    }
    if (options.Monitor.empty() || options.Out.empty() || options.Seconds == 0)
        return std::nullopt;
    return options;
}

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
        if (RecordedSeconds >= seconds || endWanted != 0 || hopeless)
            StopRequested = On;
        if (timProcess.Enabled)
            clock.Pass(wait, world);
    }
    CloseMonitor();
    SessionSeconds = RecordedSeconds = std::min(RecordedSeconds, seconds);
}

int Finish(const RecordOptions& options) {
    if (SessionSeconds < 1) {
        DiscardJournal();
        return Complain(options.Monitor + ": no second has come from the monitor", ExitFailure);
    }
    if (const Integer failure = WriteSessionFile(options.Out); failure != 0) {
        if (JournalFailure == 0)
            Complain("the recording stays in " + JournalName() + "; see pulselark recover", ExitFailure);
        return ComplainOfFile(options.Out, failure, 0);
    }
    DiscardJournal();
    std::printf("%s: %d seconds\n", options.Out.c_str(), static_cast<int>(SessionSeconds));
    return ExitSuccess;
}

bool ReadForReplay(const std::string& file, LiveRecord& record) {
    return ReadLiveRecord(file, record).Number == 0;
}

std::string NamesOfMonitors(SystemMonitors& monitors) {
    std::string names;
    for (const std::string& name : monitors.Names())
        names += (names.empty() ? "\"" : ", \"") + name + "\"";
    return names;
}

std::string KeysOfOptions(SystemMonitors& monitors) {
    std::string keys;
    for (const MonitorOption& option : monitors.Options(MonitorName))
        keys += (keys.empty() ? "" : ", ") + option.Key;
    return keys.empty() ? "no options" : keys;
}

// What the status line would say while the recording runs.
void TellStatus() {
    if (SessionRunning != Off && !labStatus.Caption.empty())
        std::fprintf(stderr, "pulselark: %s\n", labStatus.Caption.c_str());
}

} // namespace

int RunRecord(Arguments arguments, const RecordWorld& world) {
    const auto options = ParseOptions(arguments);
    if (!options) {
        return Complain("usage: pulselark record --monitor NAME [--option K=V ...] --seconds 1..3600 --out "
                        "FILE.hti [--fast]",
                        ExitUsage);
    }
    RecordClock clock(options->Fast);
    SystemFiles files;
    SystemMonitors monitors(files, [] { return std::string(); });
    world.AddMonitors(monitors, {.Clock = clock,
                                 .Words = &TextOfMonitorWord,
                                 .ReadRecord = &ReadForReplay,
                                 .SerialPort = SerialPort,
                                 .TellPortRefused = &TellPortRefused});
    const ConsolePlatform platform(&clock, monitors);
    SetProgramFolder(FindProgramFolder());
    InitApplication(false);
    AutoEndSession = Off;
    MonitorName = options->Monitor;
    if (monitors.Find(MonitorName) == nullptr)
        return Complain(MonitorName + ": there is no such monitor; there are " + NamesOfMonitors(monitors),
                        ExitUsage);
    for (const auto& [key, value] : options->Settings) {
        if (!monitors.SetOption(MonitorName, key, value))
            return Complain(std::string(key).append("=").append(value) + ": not an option of " + MonitorName +
                                ", or not a value for it; it has " + KeysOfOptions(monitors),
                            ExitUsage);
    }
    std::signal(SIGINT, [](int) { endWanted = 1; });
    std::signal(SIGTERM, [](int) { endWanted = 1; });
    StartWithAllChannels();
    if (SessionRunning == Off)
        return Complain(labStatus.Caption, ExitFailure);
    AfterStatus = &TellStatus;
    Record(options->Seconds, clock, world);
    AfterStatus = nullptr;
    return Finish(*options);
}

} // namespace pulselark
