#include "app/EndSignals.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <csignal>
#include <vector>

namespace pulselark {
namespace {

void Ignored(int /*number*/) {}

TEST(EndSignals, ArePassedOnInTheLoopAndGivenBackAfterwards) {
    std::signal(SIGTERM, &Ignored);
    std::signal(SIGHUP, SIG_IGN);
    std::vector<int> heard;
    {
        const EndSignals ends([&heard](int number) { heard.push_back(number); });
        std::raise(SIGTERM);
        std::raise(SIGINT);
        std::raise(SIGHUP); // as under nohup
        EXPECT_TRUE(heard.empty());
        QCoreApplication::processEvents();
        EXPECT_EQ(heard, (std::vector<int>{SIGTERM, SIGINT}));
        // The second time it is not held back any more.
        struct sigaction now {};
        ::sigaction(SIGTERM, nullptr, &now);
        EXPECT_EQ(now.sa_handler, SIG_DFL);
    }
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), &Ignored);
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

} // namespace
} // namespace pulselark
