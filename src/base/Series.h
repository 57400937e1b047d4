#pragma once

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace pulselark {

/// A fixed row of N values counted from 1, as seconds, samples, bins and slots are counted. It is aligned for
/// the transforms and never reallocated.
/// `[]` is for loops that have proved their bounds; `at()` is for every index that data from outside can
/// reach: a wrong one is failure 9.
template <class T, int N>
class Series {
public:
    static constexpr int Size = N;

    T& operator[](int index) { return values_[static_cast<std::size_t>(index - 1)]; }
    const T& operator[](int index) const { return values_[static_cast<std::size_t>(index - 1)]; }

    T& at(Long index) { return values_[Checked(index)]; }
    const T& at(Long index) const { return values_[Checked(index)]; }

    void Fill(const T& value) { values_.fill(value); }

    /// The values in order; `data()[0]` is the value counted 1.
    T* data() { return values_.data(); }
    const T* data() const { return values_.data(); }
    auto begin() { return values_.begin(); }
    auto begin() const { return values_.begin(); }
    auto end() { return values_.end(); }
    auto end() const { return values_.end(); }

    bool operator==(const Series&) const = default;

private:
    static std::size_t Checked(Long index) {
        if (index < 1 || index > N)
            throw Failure{FailureIndexOutOfRange};
        return static_cast<std::size_t>(index) - 1;
    }

    alignas(64) std::array<T, N> values_{};
};

} // namespace pulselark
