#pragma once

namespace pulselark {

/// What a start came to; milliseconds from the start of the process.
struct StartFigures {
    double Painted = 0;         ///< the main window is on the screen
    double Settled = 0;         ///< the stages of the start are over, and their panels on the screen
    double ProcessorAtRest = 0; ///< milliseconds of processor time in three seconds
    double PeakMebibytes = 0;   ///< largest resident memory
    int TimersAtRest = 0;       ///< timers that ran out in the same seconds
    int Width = 0;              ///< of the window, in pixels
    int Height = 0;
};

inline constexpr const char* StartedVariable = "LARK_BENCH_STARTED"; ///< when the process was made
inline constexpr const char* ReportVariable = "LARK_BENCH_REPORT";   ///< descriptor that takes the figures

double WallMilliseconds();

/// What the watch asks of the program that it watches.
struct StartWatched {
    bool (*Settled)() = nullptr;    ///< the stages of its start are over; none for a program without stages
    void (*BeforeRest)() = nullptr; ///< ends what it does of itself; without it there is no rest to measure
};

/// Watches the application that is made next: when its window `frmMain` has been painted, the start is
/// settled and the rest measured, the figures are written and the process ends. Does nothing without the
/// variables above.
void WatchStart(const StartWatched& watched);

} // namespace pulselark
