#pragma once

#include "base/Numbers.h"

#include <cstddef>
#include <memory>
#include <string>

/// The least that each figure's work needs, written as directly as the libraries allow: no structure, no
/// checks, nothing kept. A figure is judged by its ratio to its floor.
namespace pulselark {

/// The transforms of one second of the session in the buffers, both channels: copy of 1024 samples, transform
/// and 512 magnitudes, transform of these and 256 magnitudes. `second` counts from 8.
void BareTransforms(Long second);

/// The same for every second of the session.
void BareRescan();

/// One transform of 256 intervals and its 128 powers, both channels.
void BareHrv(Long second);

/// Reads a session file whole and every line but the heading's as a number. Returns the count of numbers.
std::size_t BareRead(const std::string& fileName);

/// The numbers that BareRead found, in the order of the file.
const float* BareReadValues();

struct BareText {
    std::unique_ptr<char[]> Bytes;
    std::size_t Size;
};

/// The numbers of the session in the buffers, shortest form, a line each.
BareText BareWrite();

} // namespace pulselark
