#pragma once

#include "base/Numbers.h"

#include <string>

namespace pulselark {

/// Saves the session in the buffers under a name that the user chooses. An unchanged session is not saved
/// again, and the user is told so. `LastFileResult` is 999 after a success, 32755 after a cancelled dialog,
/// else the number of the failure, which the user has been told; the session then stays unsaved.
void SaveSession();

/// The same from the file menu: in training the scenery is told before the dialog hides it.
void SaveSessionFromMenu();

/// Writes the session in the buffers as file `name`, whole or not at all. Returns 0 or the failure's number.
Integer WriteSessionFile(const std::string& name);

} // namespace pulselark
