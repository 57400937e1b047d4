#pragma once

#include <string>
#include <vector>

namespace pulselark {

/// A packet of a Cyton board; channels that are not given are 0.
inline std::string CytonPacket(int counter, const std::vector<int>& counts) {
    std::string packet = "\xA0";
    packet.push_back(static_cast<char>(counter));
    for (std::size_t channel = 0; channel < 8; ++channel) {
        const unsigned value = channel < counts.size() ? static_cast<unsigned>(counts[channel]) : 0;
        for (const unsigned shift : {16U, 8U, 0U})
            packet.push_back(static_cast<char>((value >> shift) & 0xFFU));
    }
    return packet + std::string(6, '\x11') + "\xC0";
}

} // namespace pulselark
