#pragma once

#include "persistence/WfdbRecord.h"
#include "platform/LiveRecord.h"

#include <string>

namespace pulselark {

/// Reads a session file, or the WFDB record of a header or signal file (`.hea`, `.dat`), for a monitor to
/// play; the session in the buffers stays as it is. A session has a channel B if it was recorded in two
/// channels; of a record the first two signals are taken. Failures are those of the files, of
/// `ReadSessionText` and `ReadWfdbRecord`; `record` is then not to be used.
RecordOutcome ReadLiveRecord(const std::string& name, LiveRecord& record);

} // namespace pulselark
