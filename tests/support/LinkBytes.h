#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pulselark {

/// Numbers out of a message, read by hand: nothing here knows the program's own format.
inline double DoubleAt(const std::vector<unsigned char>& bytes, std::size_t item) {
    std::uint64_t bits = 0;
    for (std::size_t i = 8; i-- > 0;)
        bits = bits << 8 | bytes.at(item * 8 + i);
    return std::bit_cast<double>(bits);
}

inline std::string Hex(const std::vector<unsigned char>& bytes) {
    std::string text;
    for (const unsigned char byte : bytes) {
        text += "0123456789abcdef"[byte >> 4];
        text += "0123456789abcdef"[byte & 15];
    }
    return text;
}

} // namespace pulselark
