#pragma once

#include "platform/ProgramLauncher.h"

namespace pulselark {

/// Starts sibling programs as processes of their own, which outlive this one: in a session of their own, with
/// nothing to read and their output dropped, at this program's priority. "WideFB.exe" is the program
/// `widefb`: its name without ".exe", in lower case, looked for in the folder of the running program, then on
/// the path. Parameters are parted at blanks; quotation marks keep blanks together. A file that is no program
/// is not opened (31); verb and show command are not needed.
class SystemLauncher final : public ProgramLauncher {
public:
    int Execute(const LaunchRequest& request) override;
};

} // namespace pulselark
