// Starting and stopping the log file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "include/VelaAgent.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/simulator/Machine.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kUnInitLine =
    "INFO Uninitialize: ================= Uninitialize starts. "
    "=================";
const std::string kLastLine = "INFO UnInitialize: Logger::UnInitialize";

class LoggerExportsTest : public testing::Test {
 protected:
    LoggerExportsTest() { simulator::Machine::Get().Reset(); }

    // UnInit logs one line when no session is open.
    static void LogALine() { UnInit(); }

    static std::vector<std::string> Texts(const std::filesystem::path& folder) {
        std::vector<std::string> texts;
        for (const auto& line : kit::ReadLogLines(LogFileIn(folder))) {
            texts.push_back(line.Text());
        }
        return texts;
    }
    std::vector<std::string> Texts() const { return Texts(folder_); }

    const LogFolder logFolder_;
    std::filesystem::path folder_ = logFolder_.Path();
};

TEST_F(LoggerExportsTest, WriteTheFileBetweenThem) {
    LogALine();
    InitLogger(folder_.wstring().c_str());
    LogALine();
    UnInitLogger();
    LogALine();
    EXPECT_THAT(Texts(), ElementsAre(kUnInitLine, kLastLine));
}

TEST_F(LoggerExportsTest, CopyTheDirectory) {
    std::wstring directory = folder_.wstring();
    InitLogger(directory.c_str());
    directory.assign(directory.size(), L'x');
    LogALine();
    UnInitLogger();
    EXPECT_THAT(Texts(), ElementsAre(kUnInitLine, kLastLine));
}

TEST_F(LoggerExportsTest, Nest) {
    const LogFolder otherLog;
    const std::filesystem::path other = otherLog.Path();
    InitLogger(folder_.wstring().c_str());
    InitLogger(other.wstring().c_str());
    UnInitLogger();
    LogALine();
    UnInitLogger();
    EXPECT_THAT(Texts(), ElementsAre(kUnInitLine, kLastLine));
    EXPECT_FALSE(std::filesystem::exists(otherLog.File()));
}

TEST_F(LoggerExportsTest, MayBeUsedAgainWithAnotherDirectory) {
    const LogFolder otherLog;
    const std::filesystem::path other = otherLog.Path();
    InitLogger(folder_.wstring().c_str());
    UnInitLogger();
    InitLogger(other.wstring().c_str());
    LogALine();
    UnInitLogger();
    EXPECT_THAT(Texts(), ElementsAre(kLastLine));
    EXPECT_THAT(Texts(other), ElementsAre(kUnInitLine, kLastLine));
}

TEST_F(LoggerExportsTest, StoppingALoggerThatWasNotStartedDoesNothing) {
    UnInitLogger();
    UnInitLogger();
    InitLogger(folder_.wstring().c_str());
    UnInitLogger();
    EXPECT_THAT(Texts(), ElementsAre(kLastLine));
}

TEST_F(LoggerExportsTest, ANullDirectoryStartsNothing) {
    // The current folder is where a file without a directory would appear.
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_);
    InitLogger(nullptr);
    LogALine();
    UnInitLogger();
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
    std::filesystem::current_path(before);
    // The null start was not counted: one start is ended by one stop.
    InitLogger(folder_.wstring().c_str());
    UnInitLogger();
    LogALine();
    EXPECT_THAT(Texts(), ElementsAre(kLastLine));
}

TEST_F(LoggerExportsTest, ANullDirectoryIsReportedInARunningLogAndDoesNotCount) {
    InitLogger(folder_.wstring().c_str());
    InitLogger(nullptr);
    UnInitLogger();
    LogALine();
    EXPECT_THAT(Texts(),
                ElementsAre("WARNING InitLogger: InitLogger failed, directory is null pointer.",
                            kLastLine));
}

TEST_F(LoggerExportsTest, ADirectoryThatIsNotThereLosesTheLinesSilently) {
    InitLogger((folder_.wstring() + L"/missing/folder").c_str());
    LogALine();
    UnInitLogger();
    EXPECT_THAT(simulator::Machine::Get().DebugOutput(), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

}  // namespace
