// pulselark_live_bench: what a tick of the acquisition costs in an hour of a simulated recording in two
// channels, beside its budget, and what a flush of the journal costs on the disk of the temporary folder.
#include "persistence/RecordingJournal.h"
#include "platform/monitors/StandardMonitors.h"
#include "platform/system/ConsolePlatform.h"
#include "session/Acquisition.h"
#include "session/Diagnostics.h"
#include "session/JournalKeeper.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Recording.h"
#include "session/SessionTimers.h"
#include "session/Settings.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <unistd.h>
#include <vector>

using namespace pulselark;

namespace {

constexpr Long Seconds = 3600;
constexpr int Flushes = 50;

class StepClock final : public Clock {
public:
    std::int64_t Now = 0;
    std::int64_t Milliseconds() override { return Now; }
    double FineMilliseconds() override { return system_.FineMilliseconds(); }
    std::string LocalDate() override { return system_.LocalDate(); }
    std::string LocalTime() override { return system_.LocalTime(); }
    std::string Stamp() override { return system_.Stamp(); }

private:
    SystemClock system_;
};

// Of this thread, so that other programs count for little.
double ProcessorMilliseconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

void Print(const char* title, std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    const auto at = [&times](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    std::printf("%-34s %8zu  median %7.3f  99.9 %% %7.3f  worst %7.3f ms\n", title, times.size(), at(0.5),
                at(0.999), at(1));
}

void MeasureTicks(StepClock& clock) {
    std::vector<double> plain, second;
    while (timProcess.Enabled && RecordedSeconds < Seconds) {
        clock.Now += 20;
        const Long before = RecordedSeconds;
        const double start = ProcessorMilliseconds();
        ProcessTick();
        (RecordedSeconds > before ? second : plain).push_back(ProcessorMilliseconds() - start);
    }
    std::puts("processor time; the budget of a tick is 2 ms");
    Print("tick of 20 ms", plain);
    Print("tick with the second's analyses", second);
    std::printf("%-34s worst %.0f ms, beats %d\n", "beat to lamp", Diagnostics.BeatToLamp.Worst,
                static_cast<int>(Diagnostics.Beats));
}

void MeasureFlush(Files& files, const std::string& folder) {
    std::vector<double> times;
    Integer failure = 0;
    std::string second;
    AppendSamples(second, 'A', 1, {EcgA.data(), SamplesPerSecond});
    AppendSamples(second, 'B', 1, {EcgB.data(), SamplesPerSecond});
    for (int i = 0; i < Flushes; ++i) {
        const auto file = files.OpenToGrow(folder + "/flush.journal", failure);
        file->Append(second, true);
        while (file->LastFlushMilliseconds() == 0 && file->FailureSoFar() == 0)
            ::usleep(200);
        times.push_back(file->LastFlushMilliseconds());
    }
    Print("flush of a second (background)", times);
}

} // namespace

int main() {
    StepClock clock;
    SystemFiles files;
    SystemMonitors monitors(files, [] { return std::string(); });
    AddStandardMonitors(monitors, {.Clock = clock,
                                   .Words = [](MonitorWord) { return std::string(); },
                                   .ReadRecord = [](const std::string&, LiveRecord&) { return false; },
                                   .SerialPort = SerialPort,
                                   .TellPortRefused = [](Long) {}});
    const ConsolePlatform platform(&clock, monitors);
    const auto folder = std::filesystem::temp_directory_path() / ("lark_live_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    SetStartValues();
    ResetSettings();
    AutoEndSession = Off;
    SessionsFolder = folder.string() + "/";
    MonitorName = "Simulated ECG";
    monitors.SetOption(MonitorName, "channels", "2");
    ChannelMode = 1;
    ChannelBPresent = On;
    StartRecording();
    MeasureTicks(clock);
    StopRecording();
    MeasureFlush(files, folder.string());
    DiscardJournal();
    std::filesystem::remove_all(folder);
    return 0;
}
