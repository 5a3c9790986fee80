// The vendor ids of "Vela.ini", and the filters made from them.
#include "hid/VendorList.h"

#include "testing/kit/native/LibraryFolder.h"
#include "testing/unit/hid/HidTest.h"
#include "touchpad/TouchpadDiscovery.h"

namespace hid_test {
namespace {

using namespace kit;
using vela::GetVidsFromFile;

std::string Skipped(const std::string& name) {
    return "WARNING GetVidsFromFile: stoul convert failed. " + name;
}

class VendorListTest : public HidTest {
 protected:
    // Returns the vendor ids of the filters, all of which must name the touchpad's collection.
    std::vector<std::uint16_t> FilterVendors() {
        std::vector<std::uint16_t> vendors;
        for (const vela::HidDeviceFilter& filter :
             vela::TouchpadDiscovery().GetHidDeviceFilters()) {
            EXPECT_EQ(filter.UsagePage, 0xFF80);
            EXPECT_EQ(filter.Usage, 0x80);
            vendors.push_back(filter.VendorID);
        }
        return vendors;
    }

    std::vector<std::string> FileCalls() const {
        return machine_.CallTexts({"GetModuleFileNameW", "GetPrivateProfileSectionNamesW"});
    }
};

// --- the place of the file -----------------------------------------------------------------------

TEST_F(VendorListTest, NoFileIsLookedForBeforeTheLibraryWasAttached) {
    EXPECT_THAT(GetVidsFromFile(), IsEmpty());
    EXPECT_THAT(FilterVendors(), ElementsAre(0x0488));
    EXPECT_THAT(FileCalls(), IsEmpty());
}

struct PathCase {
    std::wstring library;
    std::string configuration;
};

class ConfigurationPathTest : public VendorListTest,
                              public testing::WithParamInterface<PathCase> {};

TEST_P(ConfigurationPathTest, LiesBesideTheLibrary) {
    const LibraryFolder folder(GetParam().library);
    GetVidsFromFile();
    EXPECT_THAT(FileCalls(), ElementsAre("GetModuleFileNameW(module, 260)",
                                         "GetPrivateProfileSectionNamesW(4096, \"" +
                                             GetParam().configuration + "\")"));
}

// 259 characters, as many as the platform's buffer holds.
const std::wstring kLongestFolder = L"C:\\" + std::wstring(242, L'x');

INSTANTIATE_TEST_SUITE_P(
    Paths, ConfigurationPathTest,
    testing::Values(PathCase{L"C:\\Vela\\VelaAgent.dll", "C:\\Vela\\Vela.ini"},
                    PathCase{L"C:\\Program Files\\Vela Host\\bin\\VelaAgent.dll",
                             "C:\\Program Files\\Vela Host\\bin\\Vela.ini"},
                    PathCase{L"C:/Vela/VelaAgent.dll", "C:/Vela\\Vela.ini"},
                    PathCase{L"C:\\Vela/VelaAgent.dll", "C:\\Vela\\Vela.ini"},
                    PathCase{L"C:\\Vela\\\\VelaAgent.dll", "C:\\Vela\\Vela.ini"},
                    PathCase{L"C:\\Vela\\//\\VelaAgent.dll", "C:\\Vela\\Vela.ini"},
                    PathCase{L"C:\\VelaAgent.dll", "C:\\Vela.ini"},
                    PathCase{L"VelaAgent.dll", "\\Vela.ini"},
                    PathCase{L"\\\\server\\share\\VelaAgent.dll", "\\\\server\\share\\Vela.ini"},
                    PathCase{
                        kLongestFolder + L"\\VelaAgent.dll",
                        std::string(kLongestFolder.begin(), kLongestFolder.end()) + "\\Vela.ini"}));

TEST_F(VendorListTest, APathThatCannotBeReadIsNoFile) {
    const LibraryFolder folder;
    folder.PutVelaIni("[1A2B]\n");
    machine_.FailNext("GetModuleFileNameW", Fault::Error(126));
    EXPECT_THAT(GetVidsFromFile(), IsEmpty());
    EXPECT_EQ(machine_.CountCalls("GetPrivateProfileSectionNamesW"), 0U);
    EXPECT_THAT(GetVidsFromFile(), ElementsAre(0x1A2B));
}

TEST_F(VendorListTest, APathTooLongForTheBufferIsNoFile) {
    const LibraryFolder folder(kLongestFolder + L"y\\VelaAgent.dll");
    EXPECT_THAT(GetVidsFromFile(), IsEmpty());
    EXPECT_EQ(machine_.CountCalls("GetPrivateProfileSectionNamesW"), 0U);
}

// --- the content of the file ---------------------------------------------------------------------

TEST_F(VendorListTest, WithoutAFileTheDefaultVendorIsLookedFor) {
    const LibraryFolder folder;
    EXPECT_THAT(GetVidsFromFile(), IsEmpty());
    EXPECT_THAT(FilterVendors(), ElementsAre(0x0488));
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

struct FileCase {
    const char* name;
    std::string text;
    std::vector<std::uint32_t> vendorIds;
    std::vector<std::uint16_t> filters;
    std::vector<std::string> log;
};

class VendorFile : public VendorListTest, public testing::WithParamInterface<FileCase> {};

TEST_P(VendorFile, GivesVendorIdsAndFilters) {
    const LibraryFolder folder;
    folder.PutVelaIni(GetParam().text);
    EXPECT_EQ(GetVidsFromFile(), GetParam().vendorIds);
    EXPECT_EQ(log_.TextsOf("GetVidsFromFile"), GetParam().log);
    EXPECT_EQ(FilterVendors(), GetParam().filters);
}

INSTANTIATE_TEST_SUITE_P(
    Files, VendorFile,
    testing::Values(
        FileCase{"Empty", "", {}, {0x0488}, {}},
        FileCase{"NoSections", "vendor=1A2B\n", {}, {0x0488}, {}},
        FileCase{"OneBadName",
                 "[1A2B]\n[zz]\n[0x2F00]\n",
                 {0x1A2B, 0x2F00},
                 {0x1A2B, 0x2F00},
                 {Skipped("zz")}},
        FileCase{
            "OnlyBadNames", "[zz]\n[vendor]\n", {}, {0x0488}, {Skipped("zz"), Skipped("vendor")}},
        FileCase{"OrderAndDuplicatesKept", "[2]\n[1]\n[2]\n", {2, 1, 2}, {2, 1, 2}, {}},
        FileCase{"WindowsLineEnds",
                 "[1A2B]\r\nname=x\r\n\r\n[2F00]\r\n",
                 {0x1A2B, 0x2F00},
                 {0x1A2B, 0x2F00},
                 {}},
        FileCase{"CasesAndPrefixes",
                 "[1a2b]\n[0X1A2B]\n[0001A2B]\n",
                 {0x1A2B, 0x1A2B, 0x1A2B},
                 {0x1A2B, 0x1A2B, 0x1A2B},
                 {}},
        FileCase{"LeadingBlanks", "[  1A2B]\n[\t2F00]\n", {0x1A2B, 0x2F00}, {0x1A2B, 0x2F00}, {}},
        FileCase{"TheRestOfANameIsIgnored",
                 "[1A2B touchpads]\n[12-34]\n[0x10x20]\n",
                 {0x1A2B, 0x12, 0x10},
                 {0x1A2B, 0x12, 0x10},
                 {}},
        FileCase{"HighBitsAreDropped",
                 "[1FFFF]\n[FFFF0488]\n",
                 {0x1FFFF, 0xFFFF0488},
                 {0xFFFF, 0x0488},
                 {}},
        FileCase{"LargestNumber", "[FFFFFFFF]\n", {0xFFFFFFFF}, {0xFFFF}, {}},
        FileCase{"BeyondTheLargestNumber",
                 "[100000000]\n[123456789ABCDEF0123]\n[2F00]\n",
                 {0x2F00},
                 {0x2F00},
                 {Skipped("100000000"), Skipped("123456789ABCDEF0123")}},
        // Negative numbers wrap around at 2^32.
        FileCase{"MinusSigns",
                 "[-1]\n[-FFFFFFFF]\n[-100000000]\n",
                 {0xFFFFFFFF, 1},
                 {0xFFFF, 1},
                 {Skipped("-100000000")}},
        // Vendor 0 in the low 16 bits means any vendor.
        FileCase{"Zero", "[0]\n[10000]\n", {0, 0x10000}, {0, 0}, {}}),
    [](const testing::TestParamInfo<FileCase>& test) { return test.param.name; });

TEST_F(VendorListTest, EveryBadNameIsLoggedInWhateverLetters) {
    const LibraryFolder folder;
    std::string text = "\xFF\xFE";
    for (const char16_t unit : std::u16string(
             u"[zz]\n[klju\u010D]\n[caf\u00E9]\n[\u4F60]\n[z\U0001F600]\n[z\xD83D]\n[1A2B]\n")) {
        text += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
    folder.PutVelaIni(text);
    // "caf" parses as a hexadecimal number; the rest of that name is ignored.
    EXPECT_THAT(GetVidsFromFile(), ElementsAre(0xCAF, 0x1A2B));
    EXPECT_THAT(log_.TextsOf("GetVidsFromFile"),
                ElementsAre(Skipped("zz"), Skipped("klju\xC4\x8D"), Skipped("\xE4\xBD\xA0"),
                            Skipped("z\xF0\x9F\x98\x80"), Skipped("z\\uD83D")));
}

TEST_F(VendorListTest, AListThatDoesNotFitIsReadAsFarAsItFits) {
    const LibraryFolder folder;
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "[1A2B]\n";
    folder.PutVelaIni(text);
    // Each name takes five characters with its terminator; 4094 characters fit.
    EXPECT_THAT(GetVidsFromFile(), testing::AllOf(testing::SizeIs(819), testing::Each(0x1A2BU)));
}

TEST_F(VendorListTest, TheFileIsReadAnewEachTime) {
    const LibraryFolder folder;
    folder.PutVelaIni("[1A2B]\n");
    EXPECT_THAT(FilterVendors(), ElementsAre(0x1A2B));
    folder.PutVelaIni("[2F00]\n");
    EXPECT_THAT(FilterVendors(), ElementsAre(0x2F00));
}

}  // namespace
}  // namespace hid_test
