#pragma once

#include "app/Commands.h"
#include "platform/monitors/SystemMonitors.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pulselark {

/// What the command line of `record` says.
struct RecordOptions {
    std::string Monitor;
    std::vector<std::pair<std::string, std::string>> Settings; ///< of the monitor, in their order
    Long Seconds = 0;
    std::string Out;
    bool Fast = false;
};

/// Nothing if the arguments are not understood; `problem` then says in one line which one, and what would be.
std::optional<RecordOptions> ParseRecordOptions(Arguments arguments, std::string& problem);

/// Gives the monitor its settings. Empty, or in one line what stands against it: there is no such monitor or
/// setting, a value is none for it, or the monitor cannot go fast.
std::string ApplyRecordOptions(const RecordOptions& options, SystemMonitors& monitors);

} // namespace pulselark
