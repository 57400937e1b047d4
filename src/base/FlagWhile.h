#pragma once

#include "base/Numbers.h"

namespace pulselark {

/// Sets a flag for the length of a scope: it is clear again on every way out.
class FlagWhile {
public:
    explicit FlagWhile(Boolean& flag) : flag_(flag) { flag_ = On; }
    FlagWhile(const FlagWhile&) = delete;
    FlagWhile& operator=(const FlagWhile&) = delete;
    ~FlagWhile() { flag_ = Off; }

private:
    Boolean& flag_;
};

} // namespace pulselark
