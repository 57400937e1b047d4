#pragma once

#include <string>

namespace pulselark {

/// Finds the folder that holds `config/`, `Sessions/` and `Music/`: `$PULSELARK_HOME` if set; else the folder
/// of the running program if it is writable and has a `config/`; else `$XDG_DATA_HOME/pulselark` (by default
/// `~/.local/share/pulselark`). The first and the last are filled at first use from what ships with the
/// program.
std::string FindProgramFolder();

/// Folder with the files as they ship: the running program's own, or the installation's; empty if neither has
/// them.
std::string FindShippedFolder();

/// Folder of the running program.
std::string FolderOfProgram();

} // namespace pulselark
