#pragma once

#include <string>

namespace pulselark {

/// The folder that holds `config/`, `Sessions/` and `Music/`, without a slash at its end. Found and set once
/// at start; empty before, which is the working folder.
const std::string& ProgramFolder();
void SetProgramFolder(std::string folder);

} // namespace pulselark
