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

/// Writes file `name`, whole or not at all, while the status line says so. `make` appends what the file
/// holds, and returns 0 or a failure's number, as this does; 7 if there was not enough memory for it.
Integer WriteShown(const std::string& name, const std::function<Integer(std::string&)>& make);
Integer WriteTextShown(const std::string& name, const std::function<std::string()>& text);

/// Tells how a save has ended, and notes it in `LastFileResult`; in training the scenery comes back. Returns
/// whether it succeeded.
bool EndSave(Integer failure, const std::string& name);

} // namespace pulselark
