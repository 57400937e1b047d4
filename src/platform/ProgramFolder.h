#pragma once

#include <string>

namespace pulselark {

/// The folder that holds `config/`, `Sessions/` and `Music/`, without a slash at its end. Found and set once
/// at start; empty before, which is the working folder.
const std::string& ProgramFolder();
void SetProgramFolder(std::string folder);

/// The folder from which a user's folder is filled, with the files as they ship; may be the program's folder
/// itself, and is empty if there is none.
const std::string& ShippedFolder();
void SetShippedFolder(std::string folder);

} // namespace pulselark
