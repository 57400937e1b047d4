#pragma once

#include "persistence/TextRecords.h"
#include "platform/LiveRecord.h"

#include <string>

namespace pulselark {

/// Reads a session file for a monitor to play; the session in the buffers stays as it is. Channel B is there
/// if the session was recorded in two channels. Failures are those of the files and of `ReadSessionText`;
/// `record` is then not to be used.
FileOutcome ReadLiveRecord(const std::string& name, LiveRecord& record);

} // namespace pulselark
