#include "WfdbAnnotations.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pulselark {

std::vector<WfdbMark> ReadWfdbMarks(std::string_view bytes, double rate) {
    constexpr std::uint32_t Skip = 59, Number = 60, Subtype = 61, Channel = 62, Text = 63;
    std::vector<WfdbMark> marks;
    const auto word = [bytes](std::size_t place) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[place])) |
               static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[place + 1])) << 8;
    };
    std::int64_t time = 0;
    for (std::size_t place = 0; place + 1 < bytes.size();) {
        const std::uint32_t value = word(place);
        const std::uint32_t code = value >> 10, step = value & 0x3FF;
        place += 2;
        if (value == 0)
            break;
        if (code == Skip) {
            if (place + 4 > bytes.size())
                break;
            time += static_cast<std::int32_t>(word(place) << 16 | word(place + 2)); // high word first
            place += 4;
        } else if (code == Text) {
            place += step + (step & 1);
        } else if (code != Number && code != Subtype && code != Channel) {
            time += step;
            marks.push_back({static_cast<double>(time) / rate, static_cast<int>(code)});
        }
    }
    return marks;
}

bool IsBeat(int code) {
    constexpr std::array<int, 6> Others{25, 30, 34, 35, 38, 41};
    return (code >= 1 && code <= 13) || std::find(Others.begin(), Others.end(), code) != Others.end();
}

bool IsNormalBeat(int code) {
    constexpr std::array<int, 8> Normal{1, 2, 3, 11, 12, 13, 25, 34}; // N L R j / Q B e
    return std::find(Normal.begin(), Normal.end(), code) != Normal.end();
}

} // namespace pulselark
