#pragma once

#include "base/Numbers.h"

#include <functional>
#include <optional>
#include <string>

/// The steps that saving a session and exporting a scan have in common.
namespace pulselark {

/// Asks the user for a file to save as, starting from the last one. A cancelled dialog is noted in
/// `LastFileResult`; in training the scenery that the dialog has hidden comes back.
std::optional<std::string> AskForFileToSave(const char* filter);

/// Writes `text()` as file `name`, whole or not at all, while the status line says so. Returns 0 or the
/// failure's number, 7 if there was not enough memory for the text.
Integer WriteShown(const std::string& name, const std::function<std::string()>& text);

/// Tells of a save that failed, and notes it in `LastFileResult`.
void TellSaveFailure(Integer failure, const std::string& name);

/// A file dialog hides the scenery of a training: shows it again.
void BringSceneryBack();

} // namespace pulselark
