#include "session/AnalysisBuffers.h"
#include "session/SessionTick.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <cstdlib>
#include <new>

namespace {
long allocations = 0;
}

// Every other form of new ends in one of these two.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* place = std::malloc(size))
        return place;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    ++allocations;
    const auto border = static_cast<std::size_t>(alignment);
    if (void* place = std::aligned_alloc(border, (size + border - 1) / border * border))
        return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t) noexcept {
    std::free(place);
}
void operator delete(void* place, std::align_val_t) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t, std::align_val_t) noexcept {
    std::free(place);
}

namespace pulselark {
namespace {

using Allocation = SessionTest;

TEST_F(Allocation, AnalysesOfATickAllocateNothing) {
    MakeSession(400);
    ChannelBPresent = On;
    const long before = allocations;
    delete new int; // the count works
    EXPECT_EQ(allocations, before + 1);
    for (AnalysisSecond = 1; AnalysisSecond <= 400; ++AnalysisSecond)
        RunAnalyses();
    EXPECT_EQ(allocations, before + 1);
    EXPECT_EQ(PeakIndexA, 48);
}

} // namespace
} // namespace pulselark
