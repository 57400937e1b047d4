#pragma once

#include <string>

/// What a fake driver library is told, and what it answers.
struct FakeDriver {
    std::string Calls; ///< one to a line, with the arguments
    int Answer = 1;    ///< of the operation that can fail
    int Waiting = 0;   ///< samples to be read; below 0 the connection is lost
    int State = 0;
};
