#include "platform/monitors/CytonDecoder.h"
#include "platform/monitors/LineDecoder.h"
#include "support/SensorBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace pulselark {
namespace {

using Samples = std::vector<std::vector<float>>;

std::span<const std::uint8_t> BytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Whether two series are the same, NaN being the same as NaN.
bool Same(const std::vector<float>& a, const std::vector<float>& b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && !(std::isnan(a[i]) && std::isnan(b[i])))
            return false;
    }
    return true;
}
constexpr float Lost = std::numeric_limits<float>::quiet_NaN();

TEST(LineDecoder, ReadsNumbersInPiecesOfAnySize) {
    const std::string text = "the rest of a line\n512\r\n-13.25\r+1e2\n  7 \n\n0\n";
    for (std::size_t piece = 1; piece <= text.size(); ++piece) {
        LineDecoder decoder;
        Samples samples(1);
        int good = 0;
        for (std::size_t at = 0; at < text.size(); at += piece)
            good += decoder.Take(BytesOf(text.substr(at, piece)), samples);
        EXPECT_EQ(good, 5);
        EXPECT_TRUE(Same(samples[0], {512, -13.25F, 100, 7, 0})) << piece;
    }
}

TEST(LineDecoder, ALineThatIsNoNumberIsALostSample) {
    LineDecoder decoder;
    Samples samples(2);
    decoder.Take(BytesOf("\n1,2\n!\n3\n4 ; 5\nnan 1\n1 99999999\n6\t7\n"), samples);
    EXPECT_TRUE(Same(samples[0], {1, Lost, Lost, 4, Lost, Lost, 6}));
    EXPECT_TRUE(Same(samples[1], {2, Lost, Lost, 5, Lost, Lost, 7}));
}

TEST(LineDecoder, NumbersRunTogetherAreLostAndALargerSignalIsNot) {
    LineDecoder decoder;
    Samples samples(1);
    std::string text = "\n";
    for (int i = 0; i < 1000; ++i)
        text += i % 100 == 0 ? "800\n" : "512\n";
    decoder.Take(BytesOf(text + "513514\n900\n2000\n30000\n30001\n29000\n"), samples);
    samples[0].erase(samples[0].begin(), samples[0].begin() + 1000);
    EXPECT_TRUE(Same(samples[0], {Lost, 900, 2000, Lost, 30001, 29000}));
}
TEST(LineDecoder, RubbishWithoutEndIsHeldInBoundsAndForgotten) {
    LineDecoder decoder;
    Samples samples(1);
    std::mt19937 random(5);
    std::string rubbish;
    for (int i = 0; i < 100000; ++i)
        rubbish.push_back(static_cast<char>(random()));
    EXPECT_LT(decoder.Take(BytesOf(rubbish), samples), 20);
    samples = Samples(1);
    EXPECT_EQ(decoder.Take(BytesOf("\n11\n12\n"), samples), 2);
}

TEST(CytonDecoder, ReadsSignedCountsOfTheChosenChannels) {
    CytonDecoder decoder(2);
    Samples samples(2);
    EXPECT_EQ(
        decoder.Take(BytesOf(CytonPacket(200, {1, -1, 8388607, 0, 0, 0, 0, 0}) +
                             CytonPacket(201, {0, -8388608, 65536, 0, 0, 0, 0, 0}) + CytonPacket(202, {})),
                     samples),
        2);
    EXPECT_TRUE(Same(samples[0], {-1, -8388608}));
    EXPECT_TRUE(Same(samples[1], {8388607, 65536}));
    // 4.5 V over a gain of 24 is the end of the scale.
    EXPECT_NEAR(8388607 * CytonDecoder::MillivoltsPerCount, 187.5, 1e-9);
    CytonDecoder last(8);
    samples = Samples(2);
    last.Take(BytesOf(CytonPacket(1, {0, 0, 0, 0, 0, 0, 0, 9}) + CytonPacket(2, {}) + CytonPacket(3, {})),
              samples);
    EXPECT_TRUE(Same(samples[0], {9, 0}));
    EXPECT_TRUE(Same(samples[1], {Lost, Lost})) << "there is no ninth channel";
}

TEST(CytonDecoder, ACounterThatJumpsIsSoManyLostSamples) {
    CytonDecoder decoder(1);
    Samples samples(1);
    std::string stream;
    for (const int counter : {253, 254, 1, 2, 2, 3})
        stream += CytonPacket(counter, {counter});
    decoder.Take(BytesOf(stream), samples);
    EXPECT_TRUE(Same(samples[0], {253, 254, Lost, Lost, 1, 2}));
    decoder.Restart();
    decoder.Take(BytesOf(CytonPacket(90, {90})), samples);
    EXPECT_EQ(samples[0].back(), 2) << "a packet waits for the next one's head";
    decoder.Take(BytesOf(CytonPacket(91, {91}) + CytonPacket(92, {92})), samples);
    EXPECT_TRUE(Same(samples[0], {253, 254, Lost, Lost, 1, 2, 90, 91}));
}

// Every packet of a stream in which bytes are lost, torn or added is either read right or lost in its place.
TEST(CytonDecoder, DamageNeverMovesTheSamplesThatFollow) {
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        std::string stream;
        constexpr int Packets = 120;
        for (int i = 0; i <= Packets; ++i) {
            const bool inside = i > 2 && i < Packets - 3;
            std::string packet = CytonPacket(i, {i * 1000 + 7, 0xA0A0A0, 0xC0C0C0 - (1 << 24), -i});
            const auto kind = random() % 10;
            if (kind == 0 && inside)
                packet.erase(random() % packet.size(), 1 + random() % 40);
            else if (kind == 1 && inside)
                packet.insert(random() % packet.size(),
                              std::string(random() % 9, static_cast<char>(random())));
            stream += packet;
        }
        CytonDecoder decoder(1);
        Samples samples(1);
        for (std::size_t at = 0; at < stream.size();) {
            const std::size_t piece = 1 + random() % 70;
            decoder.Take(BytesOf(stream.substr(at, piece)), samples);
            at += piece;
        }
        ASSERT_EQ(samples[0].size(), Packets);
        int right = 0;
        for (int i = 0; i < Packets; ++i) {
            const float sample = samples[0][static_cast<std::size_t>(i)];
            right += sample == static_cast<float>(i * 1000 + 7) ? 1 : 0;
        }
        EXPECT_GT(right, 60) << round;
    }
}

TEST(CytonDecoder, RubbishGivesNothing) {
    CytonDecoder decoder(1);
    Samples samples(1);
    std::mt19937 random(5);
    std::string rubbish;
    for (int i = 0; i < 300000; ++i)
        rubbish.push_back(static_cast<char>(random()));
    EXPECT_LT(decoder.Take(BytesOf(rubbish), samples), 3);
}

} // namespace
} // namespace pulselark
