#pragma once

#include <span>
#include <string>

/// The commands of the command line that need no display. Each takes its arguments without the program's and
/// the command's name and returns the exit code: 0 success, 1 a failure (told in one line on standard error),
/// 2 wrong usage (likewise, with a pointer to --help).
namespace pulselark {

inline constexpr int ExitSuccess = 0;
inline constexpr int ExitFailure = 1;
inline constexpr int ExitUsage = 2;

using Arguments = std::span<const std::string>;

/// `analyse FILE.hti [--averaging N] [--out FILE.csv]`
int RunAnalyse(Arguments arguments);

/// `resave IN.hti OUT.hti`
int RunResave(Arguments arguments);

/// `chord --render FILE.wav --session FILE.hti --from S --seconds N`
int RunChord(Arguments arguments);

/// Text of --help.
std::string HelpText();

/// One line on standard error: "pulselark: " and the text. Returns `exitCode`.
int Complain(const std::string& text, int exitCode);

/// Complains of a failed file: its name, the line if there is one, and what the failure's number means.
int ComplainOfFile(const std::string& name, int number, int line);

} // namespace pulselark
