#pragma once

#include "base/Numbers.h"

#include <cstddef>

namespace pulselark {

/// The failure's number for an error of the system's file calls; `notThere` for a file that is not there.
Integer NumberOfError(int error, Integer notThere);

/// Writes all of `size` bytes to an open file. Returns 0 or the system's error.
int WriteWhole(int file, const char* bytes, std::size_t size);

} // namespace pulselark
