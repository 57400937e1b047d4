#pragma once

#include <cmath>

namespace pulselark {

/// Whether a Double of the link is a whole number within borders, and so can be read as one.
inline bool WholeBetween(double value, int lowest, int highest) {
    return value >= lowest && value <= highest && value == std::floor(value);
}

} // namespace pulselark
