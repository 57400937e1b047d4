#pragma once

#include "base/Numbers.h"

#include <string>

/// The journal of the session in the buffers, from the start of its recording until it is saved or given up.
/// A disk that fails is told of at once; the recording goes on in memory.
namespace pulselark {

extern Integer JournalFailure; ///< why the journal has ended, 0 for none; `timTellJournal` tells; start 0

/// The journal of the session before goes, and a new one is opened in the Sessions folder. It takes the
/// session from its first sample on, so that a recording can also be continued with a new one.
void BeginJournal();

/// Goes on with a journal that was read back: `bytes` is what of file `name` is whole.
void GoOnWithJournal(const std::string& name, const std::string& bytes);

/// Writes the samples that came since the last call.
void JournalNewSamples();

/// Writes the intervals of `second` and of those before it that have changed since, and has everything
/// flushed to the disk.
void JournalIntervals(Long second);

/// The recording pauses or ends: everything is written and flushed. The file stays.
void RestJournal();

/// Waits until all that was written is on the disk, or has failed (`JournalFailure`). The file stays, and
/// nothing more goes into it.
void CloseJournal();

/// The session has been saved, or nobody wants it: the journal goes.
void DiscardJournal();

/// Name of the journal, empty if there is none.
const std::string& JournalName();

/// Puts the above to its start values; a journal that is open is let go, not deleted.
void ResetJournal();

} // namespace pulselark
