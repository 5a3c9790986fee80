#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

class WideText : public SimulatorTest {
 protected:
    static int Convert(const std::wstring& text, char* buffer, int size) {
        return WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), buffer,
                                   size, nullptr, nullptr);
    }
    static std::string Converted(const std::wstring& text) {
        char buffer[64];
        const int size = Convert(text, buffer, sizeof(buffer));
        return {buffer, static_cast<std::size_t>(size)};
    }
};

TEST_F(WideText, BecomesUtf8) {
    EXPECT_EQ(Converted(L"a\u00E9\u4E2D"), "a\xC3\xA9\xE4\xB8\xAD");
    EXPECT_EQ(Converted({wchar_t{0xD83D}, wchar_t{0xDE00}}), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Converted({wchar_t{0xD83D}, L'a', wchar_t{0xDE00}}),
              "\xEF\xBF\xBD"
              "a\xEF\xBF\xBD");
    EXPECT_EQ(Converted(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
    EXPECT_TRUE(machine_.Calls().empty());
}

TEST_F(WideText, IsMeasuredWithoutABuffer) { EXPECT_EQ(Convert(L"\u4E2D", nullptr, 0), 3); }

TEST_F(WideText, OfNoLengthEndsWithItsTerminator) {
    char buffer[] = "xxxx";
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"ab", -1, buffer, 4, nullptr, nullptr), 3);
    EXPECT_EQ(std::string(buffer, 4), std::string("ab\0x", 4));
}

TEST_F(WideText, NeedsRoomForAllOfIt) {
    char buffer[2];
    EXPECT_EQ(Convert(L"\u4E2D", buffer, sizeof(buffer)), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(WideText, IsRefusedForWrongArguments) {
    EXPECT_EQ(Convert(L"", nullptr, 0), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    SetLastError(0);
    BOOL used = FALSE;
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"a", 1, nullptr, 0, nullptr, &used), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 4, L"a", 1, nullptr, 0, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
}

}  // namespace
}  // namespace simulator_test
