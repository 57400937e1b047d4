#pragma once

#include "support/FakePlatform.h"
#include "support/FakeTimers.h"

#include <gtest/gtest.h>

#include <string>

namespace pulselark {

/// Puts all module-level state to what a freshly started program has, with fakes for the outside world.
/// Language text n of language 0 is "<n>", so that a test sees by number which text was shown.
class SessionTest : public testing::Test {
protected:
    SessionTest();
    ~SessionTest() override;

    FakePlatform Outside;
    FakeTimers Timers{Outside.Time};
};

/// What SessionTest does before each test; within one it starts the program anew.
void PutEverythingBack();

} // namespace pulselark
