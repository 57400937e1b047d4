#pragma once

#include "base/Numbers.h"

#include <string>

/// Starting other programs through the system's shell.
namespace pulselark {

/// How the start of a program came out.
struct ShellOutcome {
    bool Failed = false;
    Integer Number = 0;      ///< of the failure; some failures have the number 0
    std::string Source;      ///< where the failure comes from
    std::string Description; ///< what it means, in the user's language
};

/// Starts a program, or opens a file with its own. A program ("...exe", however written) is started with the
/// show command 0. Parameters and working folder are handed over if there is one of them; with neither, the
/// show command is 1.
ShellOutcome ShellExecuteChecked(const std::string& file, int showCommand, const std::string& parameters,
                                 const std::string& directory, const std::string& verb);

} // namespace pulselark
