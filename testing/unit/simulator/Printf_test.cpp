#include "testing/unit/simulator/SimulatorTest.h"

#include <cstdarg>

namespace simulator_test {
namespace {

int Length(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = _vscprintf(format, arguments);
    va_end(arguments);
    return length;
}

// Returns the first `count` + 1 characters of a buffer of dots after the call.
std::string Print(std::size_t count, int* result, const char* format, ...) {
    std::string buffer(64, '.');
    va_list arguments;
    va_start(arguments, format);
    *result = _vsnprintf(buffer.data(), count, format, arguments);
    va_end(arguments);
    return buffer.substr(0, count + 1);
}

TEST(PlatformPrintf, FormatsWideStrings) {
    int result = 0;
    EXPECT_EQ(Print(32, &result, "[%ws]", L"wide").substr(0, 7), std::string("[wide]\0", 7));
    EXPECT_EQ(result, 6);
    EXPECT_EQ(Length("%ws %ls %S", L"a", L"b", L"c"), 5);
    EXPECT_EQ(Length("%wc%hc", L'a', 'b'), 2);
    EXPECT_EQ(Length("%hs", "narrow"), 6);
}

TEST(PlatformPrintf, KeepsFlagsWidthAndPrecision) {
    int result = 0;
    EXPECT_EQ(Print(12, &result, "%-8.3ws|%03d", L"abcdef", 7).substr(0, 12), "abc     |007");
    EXPECT_EQ(Print(9, &result, "%*.*ws|%%ws", 5, 2, L"xyz").substr(0, 9), "   xy|%ws");
}

TEST(PlatformPrintf, LeavesOtherConversionsAlone) {
    int result = 0;
    EXPECT_EQ(
        Print(24, &result, "0x%04x %hu %lu %s%c%% w h", 0xABU, 7, 8UL, "s", 'c').substr(0, 22),
        "0x00ab 7 8 sc% w h" + std::string("\0...", 4));
    EXPECT_EQ(Length(""), 0);
    EXPECT_EQ(Length("100%%ws"), 6);
}

TEST(PlatformPrintf, FailsForWideCharactersThatTheLocaleCannotHold) {
    int result = 0;
    EXPECT_EQ(Length("%ws", L"\u4E2D"), -1);
    Print(8, &result, "%ws", L"\u4E2D");
    EXPECT_EQ(result, -1);
}

TEST(PlatformPrintf, TerminatesOnlyWhereThereIsRoom) {
    int result = 0;
    EXPECT_EQ(Print(4, &result, "%s", "abc"), std::string("abc\0.", 5));
    EXPECT_EQ(result, 3);
    EXPECT_EQ(Print(3, &result, "%s", "abc"), "abc.");
    EXPECT_EQ(result, 3);
    EXPECT_EQ(Print(2, &result, "%s", "abc"), "ab.");
    EXPECT_EQ(result, -1);
}

}  // namespace
}  // namespace simulator_test
