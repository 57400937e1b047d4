#include "FuzzTarget.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

// The seeds of a fuzz target as a test. A broken promise ends the process, and the name says by which seed.
TEST(Corpus, KeepsEveryPromise) {
    int seeds = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(PULSELARK_SOURCE "/fuzz/corpus/" PULSELARK_CORPUS)) {
        SCOPED_TRACE(entry.path().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::printf("%s\n", entry.path().filename().c_str());
        std::fflush(stdout);
        EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()),
                  0);
        ++seeds;
    }
    EXPECT_GE(seeds, 5);
}
