// "Vela.ini" beside the DLL selects the vendors whose touchpads are opened.
#include "testing/acceptance/VendorFileTest.h"

#include "testing/acceptance/FurtherDevice.h"
#include "testing/acceptance/HidPaths.h"

namespace acceptance {
namespace {

using testing::ElementsAreArray;
using testing::IsSupersetOf;

constexpr char kEmptyRecord[] =
    "{INFO @ ~CHIDInformation} CHIDInformation clear device UsagePage (0),  Usage (0) information";
constexpr char kLastLine[] = "{INFO @ UnInitialize} Logger::UnInitialize";

std::string Skipped(const std::string& name) {
    return "{WARNING @ GetVidsFromFile} stoul convert failed. " + name;
}

TEST_F(VendorFileTest, WithoutAFileTheDefaultVendorsTouchpadIsTaken) {
    EXPECT_TRUE(Finds(0x0488));
    EXPECT_FALSE(Finds(0x1A2B));
}

struct FileCase {
    const char* name;
    std::string text;
    std::vector<std::uint16_t> found;
    std::vector<std::uint16_t> notFound;
    std::vector<std::string> badNames;
};

void PrintTo(const FileCase& file, std::ostream* stream) { *stream << file.name; }

class VendorFileText : public VendorFileTest, public testing::WithParamInterface<FileCase> {};

// The scan reads the file for each device, Wine's own first.
TEST_P(VendorFileText, SelectsTheVendors) {
    WriteVendorFile(GetParam().text);
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    agent_.UnInitLogger();
    std::vector<std::string> expected;
    for (std::size_t device = 0; device < HidPaths().size(); ++device) {
        for (const std::string& name : GetParam().badNames) expected.push_back(Skipped(name));
    }
    expected.insert(expected.end(), {kEmptyRecord, kLastLine});
    EXPECT_THAT(log_.Lines(), ElementsAreArray(expected));

    for (const std::uint16_t vendor : GetParam().found) EXPECT_TRUE(Finds(vendor)) << vendor;
    for (const std::uint16_t vendor : GetParam().notFound) EXPECT_FALSE(Finds(vendor)) << vendor;
}

INSTANTIATE_TEST_SUITE_P(
    , VendorFileText,
    testing::Values(
        FileCase{"Empty", "", {0x0488}, {0x1A2B}, {}},
        FileCase{"NoSections", "vendor=1A2B\r\n", {0x0488}, {0x1A2B}, {}},
        FileCase{"AnotherVendorOnly", "[1A2B]\r\n", {0x1A2B}, {0x0488}, {}},
        FileCase{"TwoVendors",
                 "[1A2B]\r\nname=x\r\n\r\n[2F00]\r\n",
                 {0x1A2B, 0x2F00},
                 {0x0488, 0x2B1A},
                 {}},
        FileCase{"TheDefaultAmongThem", "[1a2b]\n[488]\n", {0x1A2B, 0x0488}, {0x2F00}, {}},
        FileCase{"BadNamesAmongThem",
                 "[1A2B]\r\n[zz]\r\n[0x2F00]\r\n[vendor 7]\r\n",
                 {0x1A2B, 0x2F00},
                 {0x0488},
                 {"zz", "vendor 7"}},
        FileCase{"BadNamesOnly", "[zz]\r\n[-]\r\n", {0x0488}, {0x1A2B}, {"zz", "-"}},
        FileCase{"Prefixed", "[0x1A2B]\r\n[0X2F00]\r\n", {0x1A2B, 0x2F00}, {0x0488}, {}},
        FileCase{"TheRestOfANameIsIgnored", "[1A2B Vela]\r\n", {0x1A2B}, {0x0488}, {}},
        FileCase{"HighBitsAreDropped", "[1FFFF]\r\n", {0xFFFF}, {0x0488}, {}},
        FileCase{"Largest", "[FFFFFFFF]\r\n", {0xFFFF}, {0x0488}, {}},
        FileCase{
            "BeyondTheLargest", "[100000000]\r\n[2F00]\r\n", {0x2F00}, {0x0488}, {"100000000"}},
        FileCase{"Duplicates", "[2F00]\r\n[1A2B]\r\n[2F00]\r\n", {0x2F00, 0x1A2B}, {0x0488}, {}},
        FileCase{"MinusSign", "[-1]\r\n", {0xFFFF}, {0x0488}, {}},
        // Vendor 0 in the low 16 bits means any vendor.
        FileCase{"Zero", "[0]\r\n", {0x0488, 0x1A2B}, {}, {}}),
    [](const auto& test) { return test.param.name; });

// The system's order decides, not the file's.
TEST_F(VendorFileTest, OfTwoListedVendorsTheFirstDeviceIsTaken) {
    WriteVendorFile("[2F00]\r\n[1A2B]\r\n");
    TouchpadLayout listedLast;
    listedLast.vendorId = 0x1A2B;
    TouchpadLayout listedFirst;
    listedFirst.vendorId = 0x2F00;
    FurtherDevice notListed(L"a");
    FurtherDevice first(L"b", listedLast);
    FurtherDevice second(L"c", listedFirst);
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(first.Device().Opens(), 1U);
    EXPECT_TRUE(notListed.IsUntouched());
    EXPECT_TRUE(second.IsUntouched());
    EXPECT_EQ(agent_.UnInit(), 1);
}

TEST_F(VendorFileTest, IsVelaPresentFollowsItToo) {
    WriteVendorFile("[1A2B]\r\n");
    FurtherDevice ofTheDefaultVendor(L"default");
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    TouchpadLayout listed;
    listed.vendorId = 0x1A2B;
    Plug(listed);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
}

TEST_F(VendorFileTest, IsReadAnewByEachInit) {
    WriteVendorFile("[1A2B]\r\n");
    EXPECT_TRUE(Finds(0x1A2B));
    EXPECT_FALSE(Finds(0x2F00));
    WriteVendorFile("[2F00]\r\n");
    EXPECT_TRUE(Finds(0x2F00));
    EXPECT_FALSE(Finds(0x1A2B));
    std::filesystem::remove(VendorFile());
    EXPECT_TRUE(Finds(0x0488));
    EXPECT_FALSE(Finds(0x2F00));
}

// An open session keeps its touchpad, whatever vendor made it.
TEST_F(VendorFileTest, AChangeLeavesAnOpenSessionAlone) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    WriteVendorFile("[1A2B]\r\n");
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
}

// The file is UTF-16 with a byte order mark.
TEST_F(VendorFileTest, MayBeWrittenInSixteenBits) {
    std::string text = "\xFF\xFE";
    for (const char character : std::string("[1A2B]\r\n[2F00]\r\n")) text += {character, '\0'};
    WriteVendorFile(text);
    EXPECT_TRUE(Finds(0x1A2B));
    EXPECT_TRUE(Finds(0x2F00));
    EXPECT_FALSE(Finds(0x0488));
}

TEST_F(VendorFileTest, NamesThatAreNoVendorsAreLoggedInWhateverLetters) {
    std::string text = "\xFF\xFE";
    for (const char16_t unit : std::u16string(
             u"[zz]\r\n[klju\u010D]\r\n[\u00E9t\u00E9]\r\n[\u4F60]\r\n[z\xD83D]\r\n[1A2B]\r\n")) {
        text += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
    WriteVendorFile(text);
    EXPECT_TRUE(Finds(0x1A2B));
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(),
                IsSupersetOf({Skipped("zz"), Skipped("klju\xC4\x8D"), Skipped("\xC3\xA9t\xC3\xA9"),
                              Skipped("\xE4\xBD\xA0"), Skipped("z\\uD83D")}));
}

TEST_F(VendorFileTest, MayLieBelowAnyFolderName) {
    for (const wchar_t* folder :
         {L"Vela Agent (64 bit)", L"Ger\u00E4te f\u00FCr \u89C6\u9891", L"deep\\er.folder\\[x]"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(folder)));
        UseCopyIn(log_.Path() / folder);
        WriteVendorFile("[1A2B]\r\n");
        EXPECT_TRUE(Finds(0x1A2B));
        EXPECT_FALSE(Finds(0x0488));
    }
}

TEST_F(VendorFileTest, KeepsItsNameWhateverTheLibrarysIs) {
    UseCopyIn(log_.Path() / "renamed", L"Renamed.dll");
    WriteVendorFile("[1A2B]\r\n");
    EXPECT_TRUE(Finds(0x1A2B));
}

// Neither the host's folder nor its current directory is searched.
TEST_F(VendorFileTest, IsLookedForBesideTheLibraryOnly) {
    const std::filesystem::path elsewhere = log_.Path() / "elsewhere";
    std::filesystem::create_directories(elsewhere);
    std::ofstream(elsewhere / "Vela.ini") << "[1A2B]\n";
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(elsewhere);
    EXPECT_TRUE(Finds(0x0488));
    EXPECT_FALSE(Finds(0x1A2B));
    std::filesystem::current_path(before);
}

}  // namespace
}  // namespace acceptance
