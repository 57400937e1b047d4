#include "platform/link/SocketTransport.h"

#include "platform/link/LinkFormat.h"
#include "platform/link/PartnerListener.h"
#include "support/PartnerProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <poll.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <thread>

namespace pulselark {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

class Transport : public testing::Test {
protected:
    Transport() : Runtime(Outside.Name()) {
        ::setenv("XDG_RUNTIME_DIR", Runtime.c_str(), 1);
        ::mkdir(LinkFolder().c_str(), 0700);
    }
    ~Transport() override { ::unsetenv("XDG_RUNTIME_DIR"); }

    bool Send(double value) { return Link.Send("Tide", PackLinkValue(value)); }
    // Sends values from `first` on until one is heard.
    bool SendUntilHeard(double first) {
        for (const auto end = Clock::now() + milliseconds(20000); Clock::now() < end; ++first) {
            if (Send(first))
                return true;
        }
        return false;
    }
    static std::string Socket() { return LinkSocketName("Tide"); }

    TemporaryFolder Outside;
    std::string Runtime;
    SocketTransport Link;
};

// A partner in a thread of this process.
class Listening {
public:
    explicit Listening(std::vector<LinkMessage>& heard)
        : listener_("Tide", [&heard](LinkBytes payload) {
              LinkMessage message;
              if (UnpackLinkMessage(payload, message))
                  heard.push_back(message);
          }) {
        Result = listener_.Open();
        thread_ = std::thread([this] {
            while (!ends_) {
                pollfd ready{listener_.Descriptor(), POLLIN, 0};
                ::poll(&ready, 1, 10);
                listener_.HandleArrived();
            }
        });
    }
    ~Listening() {
        ends_ = true;
        thread_.join();
    }
    int Result = 0;

private:
    PartnerListener listener_;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

// Signals arrive all the while, as those of timers and children do.
class Interruptions {
public:
    Interruptions() {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        ::sigaction(SIGALRM, &action, &before_);
        Every(500);
    }
    ~Interruptions() {
        Every(0);
        ::sigaction(SIGALRM, &before_, nullptr);
    }

private:
    static void Every(suseconds_t microseconds) {
        const itimerval interval{{0, microseconds}, {0, microseconds}};
        ::setitimer(ITIMER_REAL, &interval, nullptr);
    }
    struct sigaction before_ {};
};

TEST_F(Transport, EveryMessageArrivesInOrderWhateverItsSize) {
    PartnerProcess partner(Socket());
    const Interruptions interruptions;
    std::array<float, LinkSpectrumItems> bins{};
    std::vector<double> expected;
    for (int i = 0; i < 500; ++i) {
        bins.back() = static_cast<float>(i);
        EXPECT_TRUE(i % 2 == 0 ? Send(i) : Link.Send("Tide", PackLinkSpectrum(bins)));
        expected.push_back(i);
    }
    EXPECT_EQ(partner.Received(), expected);
}

TEST_F(Transport, AMissingPartnerIsNoFailureAndOneThatComesIsFound) {
    EXPECT_FALSE(Send(1));
    EXPECT_FALSE(Link.Send("", PackLinkValue(1)));
    EXPECT_FALSE(Link.Send("../Tide", PackLinkValue(1)));
    PartnerProcess partner(Socket());
    EXPECT_TRUE(Send(2));
    EXPECT_FALSE(Link.Send("Other", PackLinkValue(3)));
    EXPECT_TRUE(Send(4));
    EXPECT_EQ(partner.Received(), (std::vector<double>{2, 4}));
}

TEST_F(Transport, APartnerThatHangsHoldsOneMessageUpOnce) {
    PartnerProcess partner(Socket());
    ASSERT_TRUE(Send(0));
    auto best = milliseconds::max();
    for (int round = 1; round <= 3; ++round) {
        partner.Stop();
        const auto begin = Clock::now();
        for (int message = 0; message < 40; ++message)
            EXPECT_FALSE(Send(round));
        const auto held = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
        EXPECT_GE(held.count(), LinkPatience - 1);
        best = std::min(best, held);
        partner.Continue();
        EXPECT_TRUE(SendUntilHeard(100));
    }
    EXPECT_LE(best.count(), 50); // one of three, since the machine may be busy otherwise
    // Of all that was sent while it hung, it has the one that held things up, and it has it first.
    const std::vector<double>& received = partner.Received();
    for (const double round : {1, 2, 3})
        EXPECT_EQ(std::count(received.begin(), received.end(), round), 1);
}

TEST_F(Transport, APartnerThatEndsAndComesBackIsFoundAgain) {
    auto partner = std::make_unique<PartnerProcess>(Socket());
    for (int life = 0; life < 3; ++life) {
        EXPECT_TRUE(Send(life));
        if (life == 1) {
            partner->Stop(); // it hangs before it ends
            EXPECT_FALSE(Send(-1));
        }
        partner->Kill();
        if (life != 0) { // the first time it is back before anybody has missed it
            EXPECT_FALSE(Send(-2));
        }
        partner = std::make_unique<PartnerProcess>(Socket());
    }
    EXPECT_TRUE(Send(10));
    EXPECT_EQ(partner->Received(), std::vector<double>{10});
}

TEST_F(Transport, APartnerThatTakesThePlaceOfOneThatHangsIsFound) {
    PartnerProcess first(Socket());
    ASSERT_TRUE(Send(1));
    first.Stop();
    EXPECT_FALSE(Send(2));
    PartnerProcess second(Socket());
    EXPECT_TRUE(Send(3));
    EXPECT_EQ(second.Received(), std::vector<double>{3});
}

TEST_F(Transport, APartnerOfAnotherUserIsRefused) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the system's own user can be another one";
    constexpr int Nobody = 65534;
    PartnerProcess partner(Socket(), Nobody);
    EXPECT_FALSE(Send(1));
    EXPECT_TRUE(partner.Received().empty());
}

TEST_F(Transport, OnlyAFolderOfThisUserIsTrustedAndItIsClosedToOthers) {
    ::chmod(LinkFolder().c_str(), 0755);
    PartnerProcess partner(Socket());
    EXPECT_TRUE(Send(1));
    struct stat facts {};
    ASSERT_EQ(::stat(LinkFolder().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0700U);

    const std::string elsewhere = Runtime + "/elsewhere";
    ASSERT_EQ(::rename(LinkFolder().c_str(), elsewhere.c_str()), 0);
    ASSERT_EQ(::symlink(elsewhere.c_str(), LinkFolder().c_str()), 0);
    SocketTransport other;
    EXPECT_FALSE(other.Send("Tide", PackLinkValue(2)));
}

TEST_F(Transport, ThePlaceFollowsTheUsersOwnFolders) {
    EXPECT_EQ(Socket(), Runtime + "/pulselark/Tide.sock");
    ::setenv("TMPDIR", "/elsewhere", 1);
    for (const char* none : {"", "relative"}) {
        ::setenv("XDG_RUNTIME_DIR", none, 1);
        EXPECT_EQ(LinkFolder(), "/elsewhere/pulselark-" + std::to_string(::geteuid()));
    }
    ::unsetenv("TMPDIR");
}

TEST_F(Transport, TheListenerHearsEveryConnectionAndAnswersWhatItDoesNotUnderstand) {
    const std::string deep = Runtime + "/" + std::string(120, 'd'); // longer than a socket's address
    ASSERT_EQ(::mkdir(deep.c_str(), 0700), 0);
    for (const std::string& folder : {Runtime, deep}) {
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
        std::vector<LinkMessage> heard;
        {
            SocketTransport one;
            SocketTransport two;
            const Listening partner(heard);
            ASSERT_EQ(partner.Result, 0);
            EXPECT_TRUE(one.Send("Tide", PackLinkCommand(222, 3, 0, 0, 0.5)));
            EXPECT_TRUE(two.Send("Tide", PackLinkValue(7)));
            EXPECT_TRUE(one.Send("Tide", LinkBytes{}));
            EXPECT_TRUE(one.Send("Tide", std::array<unsigned char, 48>{}));
            EXPECT_TRUE(one.Send("Tide", std::vector<unsigned char>(5000)));
            std::array<float, LinkHeartRateItems> bins{};
            bins.back() = 0.25F;
            EXPECT_TRUE(two.Send("Tide", PackLinkHeartRate(bins)));
            EXPECT_TRUE(one.Send("Tide", PackLinkSpectrum(std::array<float, LinkSpectrumItems>{})));
            PartnerListener second("Tide", [](LinkBytes) {});
            EXPECT_EQ(second.Open(), EADDRINUSE);
        }
        ASSERT_EQ(heard.size(), 4U);
        EXPECT_EQ(heard[0].Kind, LinkKind::Command);
        EXPECT_EQ(heard[0].Command, 222);
        EXPECT_EQ(heard[0].Parameter, (std::array{3.0, 0.0, 0.0, 0.5}));
        EXPECT_EQ(heard[1].Kind, LinkKind::Value);
        EXPECT_EQ(heard[1].Value, 7);
        EXPECT_EQ(heard[2].Kind, LinkKind::HeartRate);
        EXPECT_EQ(heard[2].ItemCount, 127U);
        EXPECT_EQ(heard[2].Items[126], 0.25);
        EXPECT_EQ(heard[3].Kind, LinkKind::Spectrum);
        struct stat facts {};
        EXPECT_NE(::stat((LinkFolder() + "/Tide.sock").c_str(), &facts), 0); // it has cleared up
    }
}

// The partner that docs/link.md shows, run as it stands there.
TEST_F(Transport, TheExampleOfTheDocumentHearsEverything) {
    std::ifstream file(PULSELARK_SOURCE "/docs/link.md");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string opening = "```python\n";
    const std::size_t begin = text.find(opening) + opening.size();
    const std::string script = Runtime + "/partner.py";
    std::ofstream(script) << text.substr(begin, text.find("```", begin) - begin);
    FILE* output = ::popen((PULSELARK_PYTHON " " + script + " Tide").c_str(), "r");
    ASSERT_NE(output, nullptr);

    ASSERT_TRUE(SendUntilHeard(0.5));
    std::array<float, LinkSpectrumItems> bins{};
    bins[3] = 2.5F;
    // Whether each is heard in time is the machine's affair; that none is lost is not.
    const auto insist = [this](LinkBytes payload) {
        const auto end = Clock::now() + milliseconds(10000);
        while (!Link.Send("Tide", payload) && Clock::now() < end) {
        }
    };
    insist(PackLinkSpectrum(bins));
    insist(PackLinkHeartRate(std::array<float, LinkHeartRateItems>{}));
    insist(PackLinkCommand(CmdCloseScenery, 0, 0, 0, 0));
    std::string heard;
    std::array<char, 256> part{};
    while (::fgets(part.data(), part.size(), output) != nullptr)
        heard += part.data();
    EXPECT_EQ(::pclose(output), 0);
    EXPECT_NE(heard.find("value "), std::string::npos);
    EXPECT_NE(heard.find("spectrum of the ECG 2.5\nspectrum of the heart rate 0.0\n"), std::string::npos);
    EXPECT_TRUE(heard.ends_with("command 227 0.0 0.0 0.0 0.0\n")) << heard;
}

TEST_F(Transport, TheListenerTakesThePlaceOfADeadOneOnly) {
    PartnerProcess partner(Socket());
    auto listener = std::make_unique<PartnerListener>("Tide", [](LinkBytes) {});
    EXPECT_EQ(listener->Open(), EADDRINUSE);
    partner.Stop(); // it hangs, but it lives
    EXPECT_EQ(listener->Open(), EADDRINUSE);
    partner.Kill();
    EXPECT_EQ(listener->Open(), 0);
    // What somebody else has put there in the meantime is his to take away.
    PartnerProcess other(Socket());
    listener.reset();
    EXPECT_TRUE(Send(1));
}

} // namespace
} // namespace pulselark
