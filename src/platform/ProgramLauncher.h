#pragma once

#include <string>

namespace pulselark {

/// A wish to start a program.
struct LaunchRequest {
    std::string File; ///< such as "WideFB.exe"
    std::string Verb;
    std::string Parameters;
    std::string Directory; ///< working folder; empty: that of this program
    int ShowCommand = 1;   ///< how its window is to show; a wish that the system may not know
};

/// The system's shell, as far as programs are started with it.
class ProgramLauncher {
public:
    virtual ~ProgramLauncher() = default;
    /// Starts the program and does not wait for it. Returns more than 32 after a success, else why it was not
    /// started: 2 no such file, 3 no such folder, 5 access denied, 8 out of memory, 11 not a program, 31 no
    /// program for such a file, any other something else.
    virtual int Execute(const LaunchRequest& request) = 0;
};

inline constexpr int LaunchedResult = 33; ///< any number above 32 says the same

/// Nothing can be started.
class NoPrograms final : public ProgramLauncher {
public:
    int Execute(const LaunchRequest& /*request*/) override { return 2; }
};

} // namespace pulselark
