#include "session/AnalysisBuffers.h"
#include "session/SessionTick.h"
#include "support/CountingNew.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

namespace pulselark {
namespace {

using Allocation = SessionTest;

TEST_F(Allocation, AnalysesOfATickAllocateNothing) {
    MakeSession(400);
    ChannelBPresent = On;
    const long before = Allocations;
    ::operator delete(::operator new(1)); // the count works
    const long atStart = Allocations;
    for (AnalysisSecond = 1; AnalysisSecond <= 400; ++AnalysisSecond)
        RunAnalyses();
    const long atEnd = Allocations;
    EXPECT_EQ(atStart, before + 1);
    EXPECT_EQ(atEnd, atStart);
    EXPECT_EQ(PeakIndexA, 48);
}

} // namespace
} // namespace pulselark
