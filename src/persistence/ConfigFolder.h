#pragma once

#include "base/Numbers.h"

#include <string>

/// The folder `config/` of the program's folder, which holds settings and configurations.
namespace pulselark {

/// The folder, without a slash at its end.
std::string ConfigFolder();

/// The path of file `name` in the folder.
std::string InConfigFolder(const std::string& name);

/// Whether a failure says that there is no such file, or no folder for it.
inline bool IsMissing(Integer failure) {
    return failure == FailureFileNotFound || failure == FailurePathNotFound;
}

} // namespace pulselark
