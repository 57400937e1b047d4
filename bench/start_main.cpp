// pulselark_start_bench: from the start of the process to the main window painted, beside a bare window of
// the toolkit of the same size; what the program does while it rests; its largest memory with the
// demonstration session open. Waits of the start are taken out. Runs on the display that is there, else
// without one. Ends with 1 when a figure misses its goal.
#include "StartWatch.h"
#include "app/RunWindow.h"
#include "platform/system/FindProgramFolder.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/SessionTimers.h"
#include "session/StartUp.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace pulselark;

namespace {

constexpr int Rounds = 15;
constexpr double GoalMilliseconds = 150; // more than the bare window
constexpr double GoalMebibytes = 90;

// What the child printed, or nothing if it came to nothing.
std::optional<StartFigures> RunChild(const std::string& program, std::vector<std::string> arguments) {
    std::array<int, 2> report{};
    if (::pipe(report.data()) != 0)
        return std::nullopt;
    const std::string begun = std::to_string(WallMilliseconds());
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv(StartedVariable, begun.c_str(), 1);
        ::setenv(ReportVariable, std::to_string(report[1]).c_str(), 1);
        std::vector<char*> words;
        arguments.insert(arguments.begin(), program);
        for (std::string& argument : arguments)
            words.push_back(argument.data());
        words.push_back(nullptr);
        ::execv(program.c_str(), words.data());
        ::_exit(1);
    }
    ::close(report[1]);
    StartFigures figures;
    const bool whole = ::read(report[0], &figures, sizeof figures) == sizeof figures;
    ::close(report[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return whole ? std::optional(figures) : std::nullopt;
}

std::string OwnProgram() {
    return FolderOfProgram() + "/pulselark_start_bench";
}

std::string BareProgram() {
    return FolderOfProgram() + "/pulselark_bare_window";
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void PrintRow(const char* name, double own, double floor, const char* unit, bool kept) {
    std::printf("%-44s %9.1f %9.1f %-4s %6.2f  %s\n", name, own, floor, unit, own / floor,
                kept ? "kept" : "MISSED");
}

// By turns, so that whatever else the machine does falls on both.
bool MeasureStart() {
    std::vector<double> painted;
    std::vector<double> settled;
    std::vector<double> bare;
    for (int round = 0; round < Rounds; ++round) {
        const auto own = RunChild(OwnProgram(), {"--window"});
        if (!own)
            return false;
        const auto floor = RunChild(BareProgram(), {std::to_string(own->Width), std::to_string(own->Height)});
        if (!floor)
            return false;
        painted.push_back(own->Painted);
        settled.push_back(own->Settled);
        bare.push_back(floor->Painted);
    }
    const double floor = Median(bare);
    const bool kept = Median(painted) - floor <= GoalMilliseconds;
    const bool keptSettled = Median(settled) - floor <= GoalMilliseconds;
    PrintRow("start to the main window painted", Median(painted), floor, "ms", kept);
    PrintRow("start to its panels painted", Median(settled), floor, "ms", keptSettled);
    return kept && keptSettled;
}

bool MeasureRest() {
    const auto rest = RunChild(OwnProgram(), {"--window", "--rest"});
    if (!rest)
        return false;
    const bool kept = rest->TimersAtRest == 0 && rest->ProcessorAtRest < 5;
    std::printf("%-44s %9d timers %6.1f ms of processor time  %s\n", "at rest, three seconds",
                rest->TimersAtRest, rest->ProcessorAtRest, kept ? "kept" : "MISSED");
    return kept;
}

bool MeasureMemory(const std::string& session) {
    const auto own = RunChild(OwnProgram(), {"--window", "--rest", session});
    const auto bare =
        own ? RunChild(BareProgram(), {std::to_string(own->Width), std::to_string(own->Height)}) : own;
    if (!bare)
        return false;
    const bool kept = own->PeakMebibytes <= GoalMebibytes;
    PrintRow("largest memory with the session open", own->PeakMebibytes, bare->PeakMebibytes, "MiB", kept);
    return kept;
}

bool MeasureAll() {
    // A home of its own: the user's settings, sessions and desktop entry stay as they are.
    std::string home = (std::filesystem::temp_directory_path() / "lark-XXXXXX").string();
    if (::mkdtemp(home.data()) == nullptr)
        return false;
    const std::string shipped = FolderOfProgram() + "/..";
    std::filesystem::copy(shipped + "/config", home + "/config");
    std::filesystem::copy(shipped + "/Sessions", home + "/Sessions");
    ::setenv("PULSELARK_HOME", home.c_str(), 1);
    ::setenv("XDG_DATA_HOME", (home + "/data").c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", home.c_str(), 0);
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::printf("%-44s %9s %9s %-4s %6s\n", "medians", "own", "bare", "", "ratio");
    const bool started = MeasureStart();
    const bool rested = MeasureRest();
    const bool kept = MeasureMemory(home + "/Sessions/demo.hti");
    std::error_code error;
    std::filesystem::remove_all(home, error);
    return started && rested && kept;
}

bool StartIsOver() {
    return StartingUp == Off && !timStartUp.Enabled && !timShowModules.Enabled && !timPrintFirst.Enabled;
}

// A session that was opened plays.
void StopReplay() {
    if (timReplay.Enabled)
        ReleaseReplayButton(RightButton);
}

int RunProgram(int argc, char** argv) {
    WindowOptions options;
    options.Splash = false;
    for (int i = 2; i < argc; ++i) {
        if (std::string(argv[i]) != "--rest")
            options.File = argv[i];
    }
    return RunWindow(1, argv, options);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return MeasureAll() ? 0 : 1;
    const bool rests = argc > 2 && std::string(argv[2]) == "--rest";
    WatchStart({&StartIsOver, rests ? &StopReplay : nullptr});
    return RunProgram(argc, argv);
}
