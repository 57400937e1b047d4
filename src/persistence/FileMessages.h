#pragma once

#include "persistence/TextRecords.h"

#include <string>

/// What the user reads when a file operation did not come out.
namespace pulselark {

/// Tells of a failed operation: `lead` with the failure's number, then what happened, to which file and line,
/// then `safe`, which says what is safe; the status line says that a file could not be used.
void ShowFileFailure(const std::string& lead, const FileOutcome& outcome, const std::string& name,
                     const std::string& safe);

} // namespace pulselark
