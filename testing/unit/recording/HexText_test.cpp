#include "tools/recording/HexText.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using recording::Bytes;
using recording::BytesOf;
using recording::Hex;
using recording::NumberOf;

TEST(HexTextTest, NumbersHaveFourDigitsOrMore) {
    EXPECT_EQ(Hex(0x80), "0x0080");
    EXPECT_EQ(Hex(0xC0110004), "0xc0110004");
    EXPECT_EQ(NumberOf("0x0080"), 0x80U);
    EXPECT_EQ(NumberOf("0xffffffff"), 0xFFFFFFFFU);
}

TEST(HexTextTest, BytesAreSeparatedByBlanks) {
    EXPECT_EQ(Hex(Bytes{2, 0, 0xFF}), "02 00 ff");
    EXPECT_EQ(BytesOf("02 00 ff"), (Bytes{2, 0, 0xFF}));
    EXPECT_EQ(Hex(Bytes{}), "");
    EXPECT_EQ(BytesOf(""), Bytes{});
}

TEST(HexTextTest, OtherTextIsRefused) {
    for (const char* const text : {"", "x", "0x", "12 34", "0x1g", "0x100000000"}) {
        EXPECT_THROW(NumberOf(text), std::invalid_argument) << text;
    }
    for (const char* const text : {"100", "0 x"}) {
        EXPECT_THROW(BytesOf(text), std::invalid_argument) << text;
    }
}

}  // namespace
