#pragma once

#include <algorithm>
#include <cstdint>

namespace pulselark {

/// The bytes of a packed message as a device takes them: both data bytes held to 0 to 127. A negative data 2
/// borrows from no other byte, so that it is found again by its sign.
struct MidiBytes {
    std::uint8_t Status;
    std::uint8_t Data1;
    std::uint8_t Data2;

    explicit MidiBytes(std::uint32_t word)
        : Status(static_cast<std::uint8_t>(word & 0xFFU)),
          Data1(static_cast<std::uint8_t>(std::min((word >> 8U) & 0xFFU, 127U))),
          Data2(static_cast<std::uint8_t>(std::clamp(static_cast<std::int32_t>(word) >> 16, 0, 127))) {}

    int Kind() const { return Status & 0xF0; }
    int Channel() const { return Status & 0x0F; }
    /// Program changes and channel pressure have one data byte.
    int Size() const { return Kind() == 0xC0 || Kind() == 0xD0 ? 2 : 3; }
};

} // namespace pulselark
