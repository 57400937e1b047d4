#pragma once

#include <string>

namespace pulselark {

/// The file menu's "open": refused while a recording runs; an unsaved session is asked about first; then
/// `OpenSession`.
void OpenSessionFromMenu();

/// The same for a file whose name is known already, such as one dropped on the window.
void OpenNamedSessionFromMenu(const std::string& name);

/// Lets the user choose a session file and opens it. A cancelled dialog changes nothing.
void OpenSession();

/// Reads session `name` into the buffers, rescans it and starts to play it. `LastFileResult` is 999 after a
/// success, else the number of the failure, which the user has been told. A file that cannot be read at all
/// leaves the present session alone; one that fails on the way leaves the buffers partly filled.
/// `LastFileLine` is the line of a failure in the text, else 0.
void OpenSessionFile(const std::string& name);

extern int LastFileLine;

} // namespace pulselark
