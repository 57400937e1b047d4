#pragma once

#include "base/Numbers.h"
#include "platform/MonitorWords.h"

#include <string>

/// Which ECG monitor is used, and what the monitors need of the core.
namespace pulselark {

/// What a monitor says of itself in the language of the user.
std::string TextOfMonitorWord(MonitorWord word);

/// Tells the user that the monitor's serial port could not be set; `code` is what its driver says.
void TellPortRefused(Long code);

} // namespace pulselark
