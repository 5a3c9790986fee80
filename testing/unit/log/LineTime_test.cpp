// The time that stands before each line of the log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>

#include "log/ILog.h"
#include "testing/kit/LogFolder.h"
#include "testing/kit/WaitUntil.h"
#include "testing/simulator/Machine.h"

namespace {

using namespace kit;
using simulator::Machine;
using vela::GetLogger;
using vela::kLogError;
using vela::kLogInfo;
using vela::kLogWarning;

// Opens the reading end, which releases a waiting writer; it stays open, as writers come and go.
std::string ReadLinesOfPipe(const std::filesystem::path& file, int lines) {
    const int pipe = open(file.c_str(), O_RDONLY);
    std::string text;
    while (std::count(text.begin(), text.end(), '\n') < lines) {
        char character = 0;
        if (read(pipe, &character, 1) == 1) {
            text += character;
        } else {
            std::this_thread::yield();
        }
    }
    close(pipe);
    return text;
}

class LineTimeTest : public testing::Test {
 protected:
    LineTimeTest() { Machine::Get().Reset(); }

    const LogFolder logFolder_;
    std::filesystem::path folder_ = logFolder_.Path();
    std::filesystem::path file_ = logFolder_.File();
    vela::ILog& logger_ = *GetLogger();
};

TEST_F(LineTimeTest, WritesTimeLevelFunctionAndMessage) {
    Machine::Get().StopClockAt("2024-05-06 17:41:58");
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogError, "SetIntensityLevel", "HidD_SetFeature failed, GetLastError(%d).", 31);
    logger_.Log(kLogWarning, "", "text");
    logger_.UnInitialize();
    EXPECT_EQ(logFolder_.Text(),
              "[2024-05-06 17:41:58] {ERROR @ SetIntensityLevel} HidD_SetFeature failed, "
              "GetLastError(31).\r\n"
              "[2024-05-06 17:41:58] {WARNING} text\r\n"
              "[2024-05-06 17:41:58] {INFO @ UnInitialize} Logger::UnInitialize\r\n");
}

TEST_F(LineTimeTest, StampsLinesOfTheNextSecondWithIt) {
    Machine::Get().StopClockAt("2024-05-06 17:41:58");
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogInfo, "f", "first");
    ASSERT_TRUE(WaitUntil([this] { return !logFolder_.Text().empty(); }));
    Machine::Get().StopClockAt("2024-05-06 17:41:59");
    logger_.Log(kLogInfo, "f", "second");
    logger_.UnInitialize();
    EXPECT_EQ(logFolder_.Text(),
              "[2024-05-06 17:41:58] {INFO @ f} first\r\n"
              "[2024-05-06 17:41:59] {INFO @ f} second\r\n"
              "[2024-05-06 17:41:59] {INFO @ UnInitialize} Logger::UnInitialize\r\n");
}

TEST_F(LineTimeTest, StampsTheTimeOfWritingNotOfLogging) {
    // The writer waits at a pipe without a reader, so the second line is still queued when the
    // clock moves on.
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    Machine::Get().StopClockAt("2000-01-01 00:00:00");
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogInfo, "f", "first");
    logger_.Log(kLogInfo, "f", "second");
    Machine::Get().StopClockAt("2001-01-01 00:00:00");
    std::thread stopping([this] { logger_.UnInitialize(); });
    const std::string text = ReadLinesOfPipe(file_, 3);
    stopping.join();
    EXPECT_THAT(text, testing::HasSubstr("[2001-01-01 00:00:00] {INFO @ f} second"));
    std::filesystem::remove(file_);
}

}  // namespace
