#pragma once

#include "base/Numbers.h"

#include <span>
#include <string>

/// The commands of the command line that need no display. Each takes its arguments without the program's and
/// the command's name and returns the exit code: 0 success, 1 a failure (told in one line on standard error),
/// 2 wrong usage (likewise, with a pointer to --help).
namespace pulselark {

inline constexpr int ExitSuccess = 0;
inline constexpr int ExitFailure = 1;
inline constexpr int ExitUsage = 2;
inline constexpr int ExitTooShort = 3; ///< a session that is too short for a quick scan

using Arguments = std::span<const std::string>;

/// `analyse FILE.hti [--averaging N] [--out FILE.csv]`
int RunAnalyse(Arguments arguments);

/// `resave IN.hti OUT.hti`
int RunResave(Arguments arguments);

/// Write the page of the quick scan that is on show, whole or not at all; 0 or the failure's number. They
/// need a toolkit, which the command itself does not.
using PageWriter = Integer (*)(const std::string& name);
struct PageWriters {
    PageWriter Picture = nullptr; ///< PNG
    PageWriter Paper = nullptr;   ///< PDF, A4
    PageWriter Letter = nullptr;  ///< PDF, US Letter
};

/// `scan FILE.hti... [--training] [--plx OUT.plx] [--pdf OUT.pdf [--paper A4|Letter]] [--png OUT.png]
/// [--channel A|B] [--language N]
/// [--smoothing W]`: the figures of the quick scan, one line of JSON for each file. A file that fails is told
/// and the rest goes on; the exit code is that of the first file that failed, or 1 if any was worse than too
/// short.
int RunScan(Arguments arguments, const PageWriters& writers);
/// `chord --render FILE.wav --session FILE.hti --from S --seconds N`
int RunChord(Arguments arguments);

/// `trace FILE.hti [--mode 0..3] [--interval N] [--averaging N] [--midi] [--app-link]`: replays a session as
/// fast as it can and prints what it does, see EventTrace.h; in the training view with that mode, or outside
/// of it.
int RunTrace(Arguments arguments);

/// What a recording needs of the program around it: the monitors there are, and a wait that lets them work.
struct RecordWorld {
    void (*AddMonitors)(class SystemMonitors& monitors, const struct MonitorSurroundings& surroundings);
    void (*Wait)(int milliseconds);
};

/// `record --monitor NAME [--option K=V ...] --seconds N --out FILE.hti [--fast]`: a recording of N seconds
/// without a window, with its journal; an interrupt ends it and keeps what there is. With `--fast` on a clock
/// that goes as fast as the samples are worked, for monitors that live by the program's clock.
int RunRecord(Arguments arguments, const RecordWorld& world);

/// `recover --list`: what a crash has left, a line each, the newest first: journal, date, time, seconds,
/// channels, monitor, TAB between them. `recover --out FILE.hti [JOURNAL]`: writes one of them, by default
/// the newest, and deletes its journal.
int RunRecover(Arguments arguments);

/// `beats FILE [--channel A|B]`: finds the beats of a session (`.hti`) or of a WFDB record (the name of its
/// `.hea`), sample by sample as in a live recording; a line for each beat: time, raw interval, corrected
/// interval (s), and its kind as in `BeatKind`, with tabs between. An inferred beat has the raw interval 0.
int RunBeats(Arguments arguments);

/// Text of --help.
std::string HelpText();

/// One line on standard error: "pulselark: " and the text. Returns `exitCode`.
int Complain(const std::string& text, int exitCode);

/// Complains of a failed file: its name, the line if there is one, and `why`, or without one what the
/// failure's number means.
int ComplainOfFile(const std::string& name, int number, int line, const std::string& why = {});

} // namespace pulselark
