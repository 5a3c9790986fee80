// The asynchronous file logger, through its interface and on real files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "log/ILog.h"
#include "log/Logger.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/simulator/Machine.h"

namespace {

using simulator::Fault;
using simulator::Machine;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using vela::GetLogger;
using vela::kLogDebug;
using vela::kLogError;
using vela::kLogInfo;
using vela::kLogWarning;

constexpr std::uintmax_t kLimit = 5242880;

std::filesystem::path MakeFile(const std::filesystem::path& file, std::uintmax_t size) {
    std::ofstream(file, std::ios::binary).put('x');
    std::filesystem::resize_file(file, size);
    return file;
}

class LoggerTest : public testing::Test {
 protected:
    LoggerTest() { Machine::Get().Reset(); }

    std::filesystem::path Backup() const { return file_.string() + ".old"; }

    const LogFolder logFolder_;
    std::filesystem::path folder_ = logFolder_.Path();
    std::filesystem::path file_ = logFolder_.File();
    vela::ILog& logger_ = *GetLogger();
};

TEST_F(LoggerTest, NamesAllLevels) {
    AgentLog log;
    logger_.Log(kLogError, "f", "a");
    logger_.Log(kLogWarning, "f", "b");
    logger_.Log(kLogInfo, "f", "c");
    EXPECT_THAT(log.Texts(), ElementsAre("ERROR f: a", "WARNING f: b", "INFO f: c"));
}

TEST_F(LoggerTest, NamedOperationsQueueTheMessageUnformatted) {
    AgentLog log;
    logger_.Error("100%d", "f");
    logger_.Warning("%s", "f");
    logger_.Info("%n", "f");
    EXPECT_THAT(log.Texts(), ElementsAre("ERROR f: 100%d", "WARNING f: %s", "INFO f: %n"));
}

TEST_F(LoggerTest, NeverWritesDebugEntries) {
    AgentLog log;
    logger_.Log(kLogDebug, "f", "hidden");
    logger_.Debug("hidden", "f");
    logger_.Log(kLogInfo, "f", "shown");
    EXPECT_THAT(log.Texts(), ElementsAre("INFO f: shown"));
}

TEST_F(LoggerTest, DropsLinesBeforeInitializeAndAfterUnInitialize) {
    logger_.Log(kLogInfo, "f", "too early");
    logger_.Error("too early", "f");
    {
        AgentLog log;
        EXPECT_THAT(log.Texts(), IsEmpty());
    }
    logger_.Log(kLogInfo, "f", "too late");
    logger_.Error("too late", "f");
    AgentLog next;
    EXPECT_THAT(next.Texts(), IsEmpty());
}

TEST_F(LoggerTest, MakesNoFileBeforeInitialize) {
    logger_.Log(kLogInfo, "f", "nowhere");
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(LoggerTest, KeepsAnEmptyMessageOfANamedOperation) {
    AgentLog log;
    logger_.Info("", "f");
    EXPECT_THAT(log.Texts(), ElementsAre("INFO f: "));
}

TEST_F(LoggerTest, SecondInitializeOnlyCounts) {
    const LogFolder otherLog;
    const std::filesystem::path other = otherLog.Path();
    logger_.Initialize(folder_.wstring());
    logger_.Initialize(other.wstring());
    logger_.Log(kLogInfo, "f", "one");
    logger_.UnInitialize();
    logger_.Log(kLogInfo, "f", "two");
    logger_.UnInitialize();
    EXPECT_THAT(ReadLogLines(file_), SizeIs(3));
    EXPECT_FALSE(std::filesystem::exists(otherLog.File()));
}

TEST_F(LoggerTest, LaterInitializeTakesANewDirectory) {
    { AgentLog first; }
    AgentLog second;
    logger_.Log(kLogInfo, "f", "here");
    EXPECT_THAT(second.Texts(), ElementsAre("INFO f: here"));
}

TEST_F(LoggerTest, UnInitializeWithoutInitializeDoesNothing) {
    logger_.UnInitialize();
    logger_.UnInitialize();
    // The count stayed zero: one Initialize is ended by one UnInitialize.
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_THAT(ReadLogLines(file_), SizeIs(1));
}

TEST_F(LoggerTest, UnInitializeWritesEverythingQueuedAndThenItsOwnLine) {
    constexpr int kLines = 2000;
    logger_.Initialize(folder_.wstring());
    for (int i = 0; i < kLines; ++i) logger_.Log(kLogInfo, "f", "%d", i);
    logger_.UnInitialize();
    const auto lines = ReadLogLines(file_);
    ASSERT_THAT(lines, SizeIs(kLines + 1));
    for (int i = 0; i < kLines; ++i) EXPECT_EQ(lines[i].message, std::to_string(i));
    EXPECT_EQ(lines.back().Text(), "INFO UnInitialize: Logger::UnInitialize");
}

TEST_F(LoggerTest, KeepsEachThreadsOrder) {
    constexpr int kLines = 500;
    AgentLog log;
    const auto write = [this](const char* name) {
        for (int i = 0; i < kLines; ++i) logger_.Log(kLogInfo, name, "%d", i);
    };
    std::thread first(write, "first");
    std::thread second(write, "second");
    first.join();
    second.join();
    for (const char* const name : {"first", "second"}) {
        const auto texts = log.TextsOf(name);
        ASSERT_THAT(texts, SizeIs(kLines));
        for (int i = 0; i < kLines; ++i) {
            EXPECT_EQ(texts[i], std::string("INFO ") + name + ": " + std::to_string(i));
        }
    }
}

TEST_F(LoggerTest, ThreadsMayLogWhileAnotherStopsTheLogger) {
    std::atomic<bool> done{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            while (!done) logger_.Log(kLogInfo, "f", "text");
        });
    }
    for (int i = 0; i < 100; ++i) {
        logger_.Initialize(folder_.wstring());
        logger_.UnInitialize();
    }
    done = true;
    for (std::thread& thread : threads) thread.join();
    for (const auto& line : ReadLogLines(file_)) {
        EXPECT_TRUE(line.message == "text" || line.message == "Logger::UnInitialize");
    }
}

TEST_F(LoggerTest, AppendsToAnExistingFile) {
    std::ofstream(file_) << "[2024-05-06 17:41:58] {INFO @ f} old\r\n";
    AgentLog unrelated;
    unrelated.Finish();
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_THAT(ReadLogLines(file_), SizeIs(2));
}

TEST_F(LoggerTest, AppendsToAFileOfExactlyTheLimit) {
    MakeFile(file_, kLimit);
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_GT(std::filesystem::file_size(file_), kLimit);
    EXPECT_FALSE(std::filesystem::exists(Backup()));
}

TEST_F(LoggerTest, RotatesAFileAboveTheLimitAndReplacesTheBackup) {
    MakeFile(file_, kLimit + 1);
    MakeFile(Backup(), 3);
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_EQ(std::filesystem::file_size(Backup()), kLimit + 1);
    EXPECT_THAT(ReadLogLines(file_), SizeIs(1));
    EXPECT_THAT(
        Machine::Get().CallTexts({"DeleteFileW", "MoveFileW"}),
        ElementsAre("DeleteFileW(\"" + Backup().string() + "\")",
                    "MoveFileW(\"" + file_.string() + "\", \"" + Backup().string() + "\")"));
}

TEST_F(LoggerTest, ADebugEntryDoesNotRotate) {
    MakeFile(file_, kLimit + 1);
    logger_.Initialize(folder_.wstring());
    logger_.Debug("hidden", "f");
    logger_.UnInitialize();
    // Only the closing line rotates the file.
    EXPECT_EQ(Machine::Get().CountCalls("MoveFileW"), 1U);
}

TEST_F(LoggerTest, WritesOnWhenTheRotationFails) {
    MakeFile(file_, kLimit + 1);
    Machine::Get().FailAlways("MoveFileW", Fault::Error(5));
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_GT(std::filesystem::file_size(file_), kLimit + 1);
}

TEST_F(LoggerTest, StaysSilentWhereTheFileCannotBeOpened) {
    logger_.Initialize((folder_ / "missing").wstring() + L"/missing");
    logger_.Log(kLogInfo, "f", "lost");
    logger_.UnInitialize();
    EXPECT_THAT(Machine::Get().DebugOutput(), IsEmpty());
}

TEST_F(LoggerTest, StaysSilentWhereAFolderIsInTheFilesPlace) {
    std::filesystem::create_directory(file_);
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogInfo, "f", "lost");
    logger_.UnInitialize();
    EXPECT_THAT(Machine::Get().DebugOutput(), IsEmpty());
    std::filesystem::remove(file_);
    AgentLog log;
    logger_.Log(kLogInfo, "f", "written");
    EXPECT_THAT(log.Texts(), ElementsAre("INFO f: written"));
}

TEST_F(LoggerTest, WritesOnWhereTheSizeCannotBeRead) {
    MakeFile(file_, kLimit + 1);
    Machine::Get().RecordFileCalls(true);
    Machine::Get().FailAlways("GetFileAttributesExW", Fault::Error(5));
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_GT(std::filesystem::file_size(file_), kLimit + 1);
    EXPECT_FALSE(std::filesystem::exists(Backup()));
    EXPECT_THAT(Machine::Get().DebugOutput(), IsEmpty());
}

// A line about the failure would query the size again, and so bring about the next one.
TEST_F(LoggerTest, WritesNoLineAboutASizeThatCannotBeRead) {
    Machine::Get().RecordFileCalls(true);
    Machine::Get().FailAlways("GetFileAttributesExW", Fault::Error(5));
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogInfo, "f", "one");
    ASSERT_TRUE(WaitUntil([this] { return !FileText(file_).empty(); }));
    logger_.UnInitialize();
    EXPECT_THAT(ReadLogLines(file_), SizeIs(2));
}

TEST_F(LoggerTest, NotifiesTheDebuggerOfALineThatDidNotReachTheFile) {
    std::filesystem::create_symlink("/dev/full", file_);
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_THAT(Machine::Get().DebugOutput(),
                ElementsAre("VelaAgent.log: WriteFile failed, GetLastError(112)"));
    std::filesystem::remove(file_);
}

TEST_F(LoggerTest, NotifiesTheDebuggerOfALineOfWhichAPartReachedTheFile) {
    Machine::Get().RecordFileCalls(true);
    Machine::Get().FailNext("WriteFile", Fault::Result(TRUE));
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_THAT(Machine::Get().DebugOutput(), SizeIs(1));
}

// No child process inherits the handle, and other programs may rename the file.
TEST_F(LoggerTest, OpensTheFileForAppendingSharedInEveryWay) {
    Machine::Get().RecordFileCalls(true);
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_THAT(Machine::Get().CallTexts({"GetFileAttributesExW", "CreateFileW"}),
                ElementsAre("GetFileAttributesExW(\"" + file_.string() + "\", 0)",
                            "CreateFileW(\"" + file_.string() + "\", 0x4, 0x7, 4, 0x80)"));
    EXPECT_EQ(Machine::Get().CountCalls("WriteFile"), 1U);
    EXPECT_EQ(Machine::Get().OpenRealFiles(), 0U);
}

TEST_F(LoggerTest, OpensTheFileAnewForEveryLine) {
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogInfo, "f", "one");
    while (!std::filesystem::exists(file_) || std::filesystem::file_size(file_) == 0) {
        std::this_thread::yield();
    }
    const std::filesystem::path moved = file_.string() + ".moved";
    std::filesystem::rename(file_, moved);
    logger_.UnInitialize();
    EXPECT_THAT(ReadLogLines(moved), SizeIs(1));
    EXPECT_THAT(ReadLogLines(file_), SizeIs(1));
    std::filesystem::remove(moved);
}

// This is the process's first use of the logger.
TEST(LoggerCreation, IsOneForTheProcess) {
    constexpr std::size_t kThreads = 8;
    std::atomic<std::size_t> ready{0};
    std::vector<std::thread> threads;
    std::vector<vela::ILog*> loggers(kThreads);
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            ++ready;
            while (ready < kThreads) std::this_thread::yield();
            loggers[i] = GetLogger();
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(loggers, testing::Each(GetLogger()));
}

TEST(LoggerDeathTest, AnUnknownLevelEndsTheProcessWhenItsLineIsWritten) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            AgentLog log;
            GetLogger()->Log(4, "f", "text");
            log.Finish();
        },
        "");
}

TEST_F(LoggerTest, WritesALineWhileItRuns) {
    const AgentLog log;
    // Gives the writer the time to find nothing to write, and to wait.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    logger_.Info("line", "f");
    EXPECT_TRUE(log.WaitForLine("line"));
}

}  // namespace
