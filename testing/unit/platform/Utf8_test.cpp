// Wide text converted for the log.
#include "platform/Utf8.h"

#include <gtest/gtest.h>

namespace {

using vela::Utf8;

TEST(Utf8, OfNothingIsNothing) { EXPECT_EQ(Utf8(L""), ""); }

TEST(Utf8, KeepsEveryLetter) {
    EXPECT_EQ(Utf8(L"zz 7%s"), "zz 7%s");
    EXPECT_EQ(Utf8(L"caf\u00E9"), "caf\xC3\xA9");
    EXPECT_EQ(Utf8(L"klju\u010D"), "klju\xC4\x8D");
    EXPECT_EQ(Utf8(L"\u4F60 \uFFFD"), "\xE4\xBD\xA0 \xEF\xBF\xBD");
}

TEST(Utf8, PutsPairsOfSurrogatesTogether) {
    EXPECT_EQ(Utf8({L'a', wchar_t{0xD83D}, wchar_t{0xDE00}, L'b'}),
              "a\xF0\x9F\x98\x80"
              "b");
    EXPECT_EQ(Utf8({wchar_t{0xD800}, wchar_t{0xDC00}}), "\xF0\x90\x80\x80");
    EXPECT_EQ(Utf8({wchar_t{0xDBFF}, wchar_t{0xDFFF}}), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, NamesHalvesWithoutTheOther) {
    EXPECT_EQ(Utf8({wchar_t{0xD800}}), "\\uD800");
    EXPECT_EQ(Utf8({L'a', wchar_t{0xDFFF}, L'b'}), "a\\uDFFFb");
    // The first pair is in the wrong order, the second has a surrogate too many before it.
    EXPECT_EQ(Utf8({wchar_t{0xDC0A}, wchar_t{0xDBFF}}), "\\uDC0A\\uDBFF");
    EXPECT_EQ(Utf8({wchar_t{0xD83D}, wchar_t{0xD83D}, wchar_t{0xDE00}}), "\\uD83D\xF0\x9F\x98\x80");
}

}  // namespace
