#pragma once

#include <string>

namespace pulselark {

struct WindowOptions {
    std::string File;        ///< session to open; may be empty
    bool Splash = true;      ///< the start shows its splash, and its stages wait
    std::string Version;     ///< of the program
    std::string Trace;       ///< file that takes each event as a line; may be empty
    bool DryTesting = false; ///< recordings run without a monitor
    bool FullSpeed = false;  ///< replay it as fast as it goes, then end
    std::string Picture;     ///< with FullSpeed: where the picture of the workspace goes
};

/// Runs the program with its window. Returns the exit code.
int RunWindow(int argc, char** argv, const WindowOptions& options);

} // namespace pulselark
