#include "base/Numbers.h"
#include "base/Text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace pulselark {
namespace {

std::string Written(float value) {
    char text[LongestSingle];
    return {text, WriteSingle(text, value)};
}

Integer FailureOf(const std::string& text) {
    try {
        ParseSingle(text);
    } catch (const Failure& failure) {
        return failure.Number;
    }
    return 0;
}

TEST(Text, SinglesAreWrittenShort) {
    const struct {
        float Value;
        const char* Text;
    } cases[] = {{0, "0"}, {1, "1"}, {-20, "-20"}, {0.375F, ".375"}, {-0.375F, "-.375"}, {0.1F, ".1"},
                 {1.5F, "1.5"}, {123.456F, "123.456"}, {9999999.0F, "9999999"}, {1.25e-5F, "1.25E-05"},
                 {0.055F, ".055"}, {1e20F, "1E+20"}, {-3.4028235e38F, "-3.4028235E+38"}, {1e-45F, "1E-45"},
                 {std::numeric_limits<float>::infinity(), "0"}, {std::nanf(""), "0"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(Written(value), text);
}

TEST(Text, EveryBitPatternComesBack) {
    std::mt19937 random(20);
    for (int i = 0; i < 200000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(value))
            continue;
        const std::string text = Written(value);
        ASSERT_LT(text.size(), LongestSingle);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(ParseSingle(text)), std::bit_cast<std::uint32_t>(value)) << text;
    }
    EXPECT_TRUE(std::signbit(ParseSingle(Written(-0.0F))));
}

TEST(Text, NumbersAreReadInEveryUsualForm) {
    const struct {
        const char* Text;
        float Value;
    } cases[] = {{".375", 0.375F}, {"0.375", 0.375F}, {"-.5", -0.5F}, {"+1.5", 1.5F}, {" \t12\r", 12},
                 {"1.234567E-02", 0.01234567F}, {"1e3", 1000}, {"1E+3", 1000}, {"5.", 5}, {"007", 7},
                 {"16777217", 16777216}, {"0.1000000014901161193847656251", 0.1F}, {"1e-60", 0},
                 {"1e-5000", 0}, {"1e-40", 1e-40F}, {"3.4028235e38", 3.4028235e38F}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(ParseSingle(text), value) << text;
}

TEST(Text, WhatIsNoNumberIsRefused) {
    for (const char* text : {"", " ", "inf", "nan", "-inf", "INFINITY", "-nan(1)", "abc", "1x", "1 2", "1,5", "+",
                             "-", ".", "+-1", "-+1", "--1", "++1", "e5", "1e", "0x10", "\"1\"", "1.2.3"})
        EXPECT_EQ(FailureOf(text), 13) << text;
    for (const char* text : {"1e39", "-1e39", "3.5e38", "1e5000", "999999999999999999999999999999999999999999"})
        EXPECT_EQ(FailureOf(text), 6) << text;
}

TEST(Text, WholeNumbersAreRoundedAndHeldTo32Bits) {
    EXPECT_EQ(ParseLong("2147483647"), 2147483647);
    EXPECT_EQ(ParseLong("-2147483648"), std::numeric_limits<Long>::min());
    EXPECT_EQ(ParseLong("2.5"), 2);
    EXPECT_EQ(ParseLong(" 1e2 "), 100);
    for (const char* text : {"2147483648", "-2147483649", "1e300", "99999999999999999999"}) {
        try {
            ParseLong(text);
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number, 6) << text;
        }
    }
}

} // namespace
} // namespace pulselark
