#pragma once

#include "base/Numbers.h"

#include <string>
#include <vector>

namespace pulselark {

/// Whole files. All names are UTF-8 paths.
class Files {
public:
    virtual ~Files() = default;

    /// Reads a regular file into `bytes`. Returns 0, or the number of the failure (52, 53, 57, 7, 70, 75,
    /// 76); then `bytes` is empty. Anything that is not a regular file, or is larger than 256 MiB, is
    /// failure 75.
    virtual Integer ReadWhole(const std::string& name, std::string& bytes) = 0;

    /// Replaces the file, or makes it, whole or not at all: the bytes go to a temporary file beside it, are
    /// flushed to the disk and take the old file's name. Whatever happens, the old file or the new one is
    /// there. Returns 0, or the number of the failure (52, 57, 61, 70, 75, 76).
    virtual Integer ReplaceWhole(const std::string& name, const std::string& bytes) = 0;

    /// Lists the files of a folder whose names end in `extension` (".htc", in letters of either case; an
    /// empty one takes every file): names without the folder, sorted by their bytes. Returns 0, or the number
    /// of the failure (52, 57, 70, 76); then `names` is empty.
    virtual Integer ListFolder(const std::string& folder, const std::string& extension,
                               std::vector<std::string>& names) = 0;
};

} // namespace pulselark
