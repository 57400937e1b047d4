#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pulselark {

/// A recording as a monitor plays it: the channels' samples in panel units, NaN where one is lost.
struct LiveRecord {
    double Rate = 128; ///< samples a second
    std::vector<std::vector<float>> Channels;
};

/// Reads a recording of any form that the program knows. False if it cannot be read.
using LiveRecordReader = std::function<bool(const std::string& file, LiveRecord& record)>;

} // namespace pulselark
