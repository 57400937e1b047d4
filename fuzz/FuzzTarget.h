#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// The routine that the fuzzer calls with each input. A target ends the process when an input breaks a
/// promise of its reader.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline void Promise(bool kept) {
    if (!kept)
        std::abort();
}
