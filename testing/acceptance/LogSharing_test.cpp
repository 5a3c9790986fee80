// The agent's log file while other programs have it open.
#include "testing/acceptance/LogFileTest.h"
#include "testing/kit/windows/ChildProcess.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class LogSharingTest : public LogFileTest {};

class Reader {
 public:
    Reader(const std::filesystem::path& file, DWORD share)
        : file_(
              CreateFileW(file.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~Reader() { Close(); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    bool IsOpen() const { return file_ != INVALID_HANDLE_VALUE; }
    void Close() {
        if (IsOpen()) CloseHandle(file_);
        file_ = INVALID_HANDLE_VALUE;
    }
    // Returns the text added since the last read.
    std::string Rest() {
        std::string text;
        char buffer[4096];
        DWORD length = 0;
        while (ReadFile(file_, buffer, sizeof(buffer), &length, nullptr) && length != 0) {
            text.append(buffer, length);
        }
        return text;
    }

 private:
    HANDLE file_;
};

TEST_F(LogSharingTest, AReaderMayHoldItOpenAndSeesTheLinesCome) {
    LogOneLine();
    Reader reader(folder_.File(), FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(reader.IsOpen());
    EXPECT_THAT(reader.Rest(), EndsWith(std::string(kLastLine) + "\r\n"));
    agent_.InitLogger(folder_.Path().c_str());
    for (std::size_t i = 0; i < 3; ++i) {
        agent_.UnInit();
        ASSERT_TRUE(folder_.WaitForLine(kLine, 2 + i));
        EXPECT_THAT(reader.Rest(), EndsWith(std::string(kLine) + "\r\n"));
    }
    agent_.UnInitLogger();
    EXPECT_THAT(reader.Rest(), EndsWith(std::string(kLastLine) + "\r\n"));
}

// The file cannot be renamed then, but no line is lost.
TEST_F(LogSharingTest, AReaderThatForbidsRenamingLetsItGrow) {
    Write(folder_.File(), std::string(kLogSizeLimit + 1, 'x'));
    Reader reader(folder_.File(), FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(reader.IsOpen());
    LogOneLine();
    EXPECT_THAT(Read(folder_.File()).substr(kLogSizeLimit + 1),
                EndsWith(std::string(kLastLine) + "\r\n"));
    EXPECT_FALSE(std::filesystem::exists(Backup()));
    reader.Close();
    LogOneLine();
    EXPECT_GT(std::filesystem::file_size(Backup()), kLogSizeLimit);
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

TEST_F(LogSharingTest, AReaderThatForbidsWritingCostsTheLinesOfItsTimeOnly) {
    LogOneLine();
    Reader reader(folder_.File(), FILE_SHARE_READ);
    ASSERT_TRUE(reader.IsOpen());
    LogOneLine();
    reader.Close();
    LogOneLine();
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine, kLine, kLastLine));
}

constexpr std::size_t kLinesOfAProcess = 300;
constexpr wchar_t kStartSignal[] = L"VelaAcceptanceTestsStart";

int LogsManyLines(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    WaitForSingleObject(OpenEventW(SYNCHRONIZE, FALSE, kStartSignal), INFINITE);
    for (std::size_t i = 0; i < kLinesOfAProcess; ++i) agent.UnInit();
    agent.UnInitLogger();
    return 0;
}

const RegisteredRole kLogsManyLines{"LogsManyLines", LogsManyLines};

class TwoProcessesLog : public LogSharingTest {
 protected:
    TwoProcessesLog() : start_(CreateEventW(nullptr, TRUE, FALSE, kStartSignal)) {}
    ~TwoProcessesLog() override { CloseHandle(start_); }

    HANDLE start_;
};

TEST_F(TwoProcessesLog, ToOneDirectoryWithEveryLineOfBoth) {
    SetEvent(start_);
    agent_.InitLogger(folder_.Path().c_str());
    agent_.UnInit();
    ASSERT_TRUE(folder_.WaitForLine(kLine));
    ChildProcess other("LogsManyLines", folder_.Path());
    EXPECT_EQ(other.Wait(), 0U);
    agent_.UnInit();
    agent_.UnInitLogger();
    std::vector<std::string> expected(kLinesOfAProcess + 1, kLine);
    expected.insert(expected.end(), {kLastLine, kLine, kLastLine});
    EXPECT_EQ(folder_.Lines(), expected);
}

// Wine appends by querying the size and writing there, so simultaneous lines may overwrite each
// other; neither process waits for the other or fails.
TEST_F(TwoProcessesLog, AtOnceWithoutHoldingEachOtherUp) {
    ChildProcess one("LogsManyLines", folder_.Path());
    ChildProcess other("LogsManyLines", folder_.Path());
    SetEvent(start_);
    EXPECT_EQ(one.Wait(), 0U);
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_GE(folder_.CountLines(kLine), kLinesOfAProcess / 2);
    LogOneLine();
    EXPECT_THAT(folder_.Text(), EndsWith(std::string(kLastLine) + "\r\n"));
}

}  // namespace
}  // namespace acceptance
