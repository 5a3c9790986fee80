#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

class IniSections : public SimulatorTest {
 protected:
    // Returns what the call wrote to a buffer of `size` question marks; result_ is its result.
    std::wstring Names(DWORD size = 64) {
        std::wstring buffer(size, L'?');
        result_ = GetPrivateProfileSectionNamesW(buffer.data(), size, L"C:\\Vela\\vela.INI");
        return buffer.substr(0, buffer.find(L'?'));
    }
    std::wstring NamesIn(const std::string& bytes) {
        machine_.PutFile(L"c:\\vela\\Vela.ini", bytes);
        return Names();
    }
    static std::wstring List(std::initializer_list<const wchar_t*> names) {
        std::wstring list;
        for (const wchar_t* name : names) list += std::wstring(name) + L'\0';
        return list + L'\0';
    }

    DWORD result_ = 0;
};

TEST_F(IniSections, AreListedInTheirOrder) {
    EXPECT_EQ(NamesIn("[0488]\r\nkey=value\r\n\r\n  [1FFFF]\n[x y]\n"),
              List({L"0488", L"1FFFF", L"x y"}));
    EXPECT_EQ(result_, 15U);
}

TEST_F(IniSections, StandOnLinesThatBeginWithABracket) {
    EXPECT_EQ(NamesIn(";[a]\n[b] ; [c]\nkey=[d]\n[e\n\t[f]"), List({L"b", L"f"}));
}

TEST_F(IniSections, OfNoNameAreLeftOut) { EXPECT_EQ(NamesIn("[]\n[a]\n"), List({L"a"})); }

TEST_F(IniSections, MayComeTwice) { EXPECT_EQ(NamesIn("[a]\n[a]\n"), List({L"a", L"a"})); }

TEST_F(IniSections, MayBeLittleEndianUtf16) {
    EXPECT_EQ(NamesIn(std::string("\xFF\xFE[\0\x2D\x4E]\0\n\0", 10)), List({L"\u4E2D"}));
}

TEST_F(IniSections, BehindAUtf8MarkAreNotSeen) {
    EXPECT_EQ(NamesIn("\xEF\xBB\xBF[a]\n[\xE9]\n"), List({L"\u00E9"}));
}

TEST_F(IniSections, OfAnEmptyFileAreNone) {
    EXPECT_EQ(NamesIn(""), std::wstring(1, L'\0'));
    EXPECT_EQ(result_, 0U);
}

TEST_F(IniSections, OfAMissingFileAreNone) {
    EXPECT_EQ(Names(), std::wstring(1, L'\0'));
    EXPECT_EQ(result_, 0U);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(IniSections, AreCutToTheBufferLessTwo) {
    NamesIn("[abc]\n[def]\n");
    EXPECT_EQ(Names(9), List({L"abc", L"def"}));
    EXPECT_EQ(result_, 8U);
    EXPECT_EQ(Names(8), List({L"abc", L"de"}));
    EXPECT_EQ(result_, 6U);
    EXPECT_EQ(Names(5), List({L"abc"}));
    EXPECT_EQ(result_, 3U);
    EXPECT_EQ(Names(1), std::wstring(1, L'\0'));
    EXPECT_EQ(result_, 0U);
}

TEST_F(IniSections, NeedABufferAndAPath) {
    wchar_t buffer[4] = {};
    EXPECT_EQ(GetPrivateProfileSectionNamesW(nullptr, 4, L"a"), 0U);
    EXPECT_EQ(GetPrivateProfileSectionNamesW(buffer, 0, L"a"), 0U);
    EXPECT_EQ(GetPrivateProfileSectionNamesW(buffer, 4, nullptr), 0U);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

}  // namespace
}  // namespace simulator_test
