// The agent's log file: its lines, and the directory that the host names.
#include <algorithm>
#include <ctime>
#include <iomanip>

#include "testing/acceptance/LogFileTest.h"

namespace acceptance {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST_F(LogFileTest, LinesEndWithCarriageReturnAndLineFeed) {
    LogOneLine();
    const std::string text = folder_.Text();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 2);
    EXPECT_THAT(text, HasSubstr(std::string(kLine) + "\r\n["));
    EXPECT_THAT(text, EndsWith(std::string(kLastLine) + "\r\n"));
}

TEST_F(LogFileTest, TimeStampsAreLocalTime) {
    const std::time_t before = std::time(nullptr);
    LogOneLine();
    const std::time_t after = std::time(nullptr);
    std::istringstream text(folder_.Text());
    std::tm stamp{};
    text >> std::get_time(&stamp, "[%Y-%m-%d %H:%M:%S] ");
    ASSERT_FALSE(text.fail());
    stamp.tm_isdst = -1;
    EXPECT_GE(std::mktime(&stamp), before);
    EXPECT_LE(std::mktime(&stamp), after);
}

TEST_F(LogFileTest, EveryLineLoggedBeforeIsInTheFileAtTheEnd) {
    agent_.InitLogger(folder_.Path().c_str());
    for (int i = 0; i < 1000; ++i) agent_.UnInit();
    agent_.UnInitLogger();
    EXPECT_EQ(folder_.CountLines(kLine), 1000U);
    EXPECT_EQ(folder_.Lines().back(), kLastLine);
}

TEST_F(LogFileTest, NothingIsKeptFromBeforeAndAfter) {
    agent_.UnInit();
    agent_.InitLogger(folder_.Path().c_str());
    agent_.UnInitLogger();
    agent_.UnInit();
    agent_.UnInitLogger();
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLastLine));
}

TEST_F(LogFileTest, AnEarlierFileIsContinued) {
    LogOneLine();
    LogOneLine();
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine, kLine, kLastLine));
}

TEST_F(LogFileTest, ADirectoryMayHaveAnyLetters) {
    const std::filesystem::path directory =
        folder_.Path() / L"\u0436\u0443\u0440\u043d\u0430\u043b \u65e5\u672c \u00fc\u00df";
    std::filesystem::create_directory(directory);
    LogOneLine(directory);
    EXPECT_THAT(Read(directory / "VelaAgent.log"), HasSubstr(kLine));
}

TEST_F(LogFileTest, ATrailingBackslashDoesNoHarm) {
    LogOneLine(folder_.Path().wstring() + L"\\");
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

TEST_F(LogFileTest, AnEmptyDirectoryIsTheRootOfTheCurrentDrive) {
    ASSERT_TRUE(SetCurrentDirectoryW(L"C:\\windows"));
    std::filesystem::remove(L"C:\\VelaAgent.log");
    LogOneLine(L"");
    EXPECT_THAT(Read(L"C:\\VelaAgent.log"), HasSubstr(kLine));
    std::filesystem::remove(L"C:\\VelaAgent.log");
}

TEST_F(LogFileTest, TheFirstOfTwoDirectoriesStaysUntilBothAreEnded) {
    const LogFolder other;
    agent_.InitLogger(folder_.Path().c_str());
    agent_.InitLogger(other.Path().c_str());
    agent_.UnInit();
    agent_.UnInitLogger();
    agent_.UnInit();
    agent_.UnInitLogger();
    agent_.UnInit();
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLine, kLastLine));
    EXPECT_FALSE(std::filesystem::exists(other.File()));

    LogOneLine(other.Path());
    EXPECT_THAT(other.Lines(), ElementsAre(kLine, kLastLine));
    EXPECT_EQ(folder_.Lines().size(), 3U);
}

TEST_F(LogFileTest, ANullDirectoryOnlyLogsAWarning) {
    agent_.InitLogger(nullptr);
    agent_.InitLogger(folder_.Path().c_str());
    agent_.InitLogger(nullptr);
    agent_.UnInitLogger();  // ends the one start that counts
    agent_.UnInit();
    EXPECT_THAT(folder_.Lines(), ElementsAre(kNullLine, kLastLine));
}

TEST_F(LogFileTest, ADirectoryThatIsNotThereIsNotMade) {
    const std::filesystem::path directory = folder_.Path() / "nowhere";
    LogOneLine(directory);
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(LogFileTest, AFileInItsDirectorysPlaceStaysAsItIs) {
    const std::filesystem::path file = folder_.Path() / "file";
    Write(file, "something else");
    LogOneLine(file);
    EXPECT_EQ(Read(file), "something else");
    LogOneLine();
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

// The logger cannot read its size and reports that to debuggers only.
TEST_F(LogFileTest, ADirectoryInTheFilesPlaceLosesLinesUntilItIsGone) {
    std::filesystem::create_directory(folder_.File());
    LogOneLine();
    EXPECT_TRUE(std::filesystem::is_empty(folder_.File()));
    agent_.InitLogger(folder_.Path().c_str());
    agent_.UnInit();
    EXPECT_TRUE(std::filesystem::is_directory(folder_.File()));
    ASSERT_TRUE(std::filesystem::remove(folder_.File()));
    agent_.UnInitLogger();
    LogOneLine();
    EXPECT_THAT(folder_.Lines(), Contains(kLine));
    EXPECT_THAT(folder_.Text(), Not(HasSubstr("DEBUG")));
}

}  // namespace
}  // namespace acceptance
