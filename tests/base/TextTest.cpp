#include "base/Text.h"

#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
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

// The expected texts are read by the C library.
TEST(Text, SinglesAreWrittenShort) {
    for (const char* text : {"0", "1", "-20", ".375", "-.375", ".1", "1.5", "123.456", "9999999", "1.25E-05",
                             ".055", "1E+20", "-3.4028235E+38", "1E-45", "-0"})
        EXPECT_EQ(Written(std::strtof(text, nullptr)), text);
    EXPECT_EQ(Written(std::numeric_limits<float>::infinity()) + Written(std::nanf("")), "00");
}

TEST(Text, EveryBitPatternComesBack) {
    std::mt19937 random(20);
    for (int i = 0; i < 200000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(value))
            continue;
        const std::string text = Written(value);
        ASSERT_LT(text.size(), LongestSingle);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(ParseSingle(text)), std::bit_cast<std::uint32_t>(value))
            << text;
    }
}

TEST(Text, NumbersAreReadAsTheCLibraryReadsThem) {
    for (const char* text :
         {".375", "0.375", "-.5", "+1.5", " \t12\r", "1.234567E-02", "1e3", "1E+3", "5.", "007", "16777217",
          "0.1000000014901161193847656251", "1e-60", "1e-5000", "1e-40", "3.4028235e38"})
        EXPECT_EQ(ParseSingle(text), std::strtof(text, nullptr)) << text;
}

TEST(Text, WhatIsNoNumberIsRefused) {
    for (const char* text :
         {"",  " ", "inf", "nan", "-inf", "INFINITY", "-nan(1)", "abc", "1x",   "1 2",   "1,5",  "+",
          "-", ".", "+-1", "-+1", "--1",  "++1",      "e5",      "1e",  "0x10", "\"1\"", "1.2.3"})
        EXPECT_EQ(FailureOf(text), 13) << text;
    for (const char* text :
         {"1e39", "-1e39", "3.5e38", "1e5000", "999999999999999999999999999999999999999999"})
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
