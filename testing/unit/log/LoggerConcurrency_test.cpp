// Many threads log while others start and stop the logger: every accepted line is in the file,
// whole and in its thread's order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "log/ILog.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/simulator/Machine.h"

namespace {

using simulator::Machine;
using namespace kit;
using testing::IsEmpty;
using testing::SizeIs;
using vela::kLogInfo;

constexpr int kThreads = 4;
constexpr int kRounds = 10;
constexpr std::uintmax_t kLimit = 5242880;

// Threads that log 0, 1, 2, ... each under its own name. They may log twice as many lines as
// requested, so they still log when the requesting thread continues, but never fill the disk.
class Writers {
 public:
    explicit Writers(vela::ILog& logger) {
        for (int i = 0; i < kThreads; ++i) {
            threads_[i] = std::thread([this, &logger, i] {
                for (int line = 0; WaitForLeave(line); ++line) {
                    logger.Log(kLogInfo, Name(i).c_str(), "%d", line);
                    logged_[i] = line + 1;
                }
            });
        }
    }
    ~Writers() { Stop(); }
    Writers(const Writers&) = delete;
    Writers& operator=(const Writers&) = delete;

    void Stop() {
        stop_ = true;
        for (std::thread& thread : threads_) {
            if (thread.joinable()) thread.join();
        }
    }
    static std::string Name(int thread) { return "thread" + std::to_string(thread); }
    // Returns how many calls of each thread have returned.
    std::array<int, kThreads> Logged() const {
        std::array<int, kThreads> logged{};
        for (int i = 0; i < kThreads; ++i) logged[i] = logged_[i];
        return logged;
    }
    // Waits until every thread has logged that many more lines.
    void LogFurther(int calls) {
        const auto before = Logged();
        allowed_ = *std::max_element(before.begin(), before.end()) + 2 * calls;
        for (int i = 0; i < kThreads; ++i) {
            while (logged_[i] < before[i] + calls) std::this_thread::yield();
        }
    }

 private:
    bool WaitForLeave(int line) const {
        while (!stop_ && line >= allowed_) std::this_thread::yield();
        return !stop_;
    }

    std::atomic<bool> stop_{false};
    std::atomic<int> allowed_{0};
    std::array<std::atomic<int>, kThreads> logged_{};
    std::array<std::thread, kThreads> threads_;
};

std::vector<int> NumbersOf(const std::string& name, const std::vector<LogLine>& lines) {
    std::vector<int> numbers;
    for (const LogLine& line : lines) {
        if (line.function == name) numbers.push_back(std::stoi(line.message));
    }
    return numbers;
}

// Expects each thread's lines between two points of time without a gap: those of calls that began
// after the first and returned by the second. A call running at either point may be missing.
void ExpectAllBetween(const std::array<int, kThreads>& from, const std::array<int, kThreads>& to,
                      const std::vector<LogLine>& lines) {
    for (int i = 0; i < kThreads; ++i) {
        SCOPED_TRACE(Writers::Name(i));
        const std::vector<int> numbers = NumbersOf(Writers::Name(i), lines);
        ASSERT_THAT(numbers, testing::Not(IsEmpty()));
        EXPECT_LE(numbers.front(), from[i] + 1);
        EXPECT_GE(numbers.back(), to[i] - 1);
        for (std::size_t n = 1; n < numbers.size(); ++n) {
            ASSERT_EQ(numbers[n], numbers[n - 1] + 1) << "behind line " << n;
        }
    }
}

class LoggerConcurrency : public testing::Test {
 protected:
    LoggerConcurrency() { Machine::Get().Reset(); }

    std::filesystem::path Backup() const { return file_.string() + ".old"; }
    // Returns the lines of both files without the bytes that FillFile wrote.
    std::vector<LogLine> LinesOfBothFiles() const {
        const std::filesystem::path tail = file_.string() + ".tail";
        std::ifstream backup(Backup(), std::ios::binary);
        backup.seekg(kLimit);
        std::ofstream(tail, std::ios::binary) << backup.rdbuf();
        std::vector<LogLine> lines = ReadLogLines(tail);
        for (LogLine& line : ReadLogLines(file_)) lines.push_back(std::move(line));
        return lines;
    }
    void RemoveFiles() const {
        std::filesystem::remove(file_);
        std::filesystem::remove(Backup());
    }
    // Fills the file to its size limit: the line after the next one rotates it.
    void FillFile() const {
        std::ofstream(file_).close();
        std::filesystem::resize_file(file_, kLimit);
    }

    const LogFolder logFolder_;
    std::filesystem::path folder_ = logFolder_.Path();
    std::filesystem::path file_ = logFolder_.File();
    vela::ILog& logger_ = *vela::GetLogger();
};

TEST_F(LoggerConcurrency, TheStopLosesNoLineThatWasAcceptedBeforeIt) {
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        RemoveFiles();
        logger_.Initialize(folder_.wstring());
        Writers writers(logger_);
        writers.LogFurther(100);
        const auto accepted = writers.Logged();
        logger_.UnInitialize();
        writers.Stop();
        ExpectAllBetween({}, accepted, ReadLogLines(file_));
    }
}

TEST_F(LoggerConcurrency, ARestartBeginsWithWhatIsLoggedAfterIt) {
    Writers writers(logger_);
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        RemoveFiles();
        writers.LogFurther(10);
        logger_.Initialize(folder_.wstring());
        const auto from = writers.Logged();
        writers.LogFurther(100);
        const auto to = writers.Logged();
        logger_.UnInitialize();
        ExpectAllBetween(from, to, ReadLogLines(file_));
    }
}

TEST_F(LoggerConcurrency, ARotationUnderWayLosesNoLine) {
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        RemoveFiles();
        FillFile();
        logger_.Initialize(folder_.wstring());
        Writers writers(logger_);
        writers.LogFurther(100);
        const auto accepted = writers.Logged();
        logger_.UnInitialize();
        writers.Stop();
        EXPECT_TRUE(std::filesystem::exists(Backup()));
        ExpectAllBetween({}, accepted, LinesOfBothFiles());
    }
}

TEST_F(LoggerConcurrency, TheLastOfManyStopsEndsIt) {
    // An outer start keeps the logger running while two threads start and stop it.
    logger_.Initialize(folder_.wstring());
    {
        Writers writers(logger_);
        const auto startAndStop = [this] {
            for (int i = 0; i < 200; ++i) {
                logger_.Initialize(L"elsewhere");
                logger_.UnInitialize();
            }
        };
        std::thread first(startAndStop);
        std::thread second(startAndStop);
        writers.LogFurther(500);
        first.join();
        second.join();
        const auto accepted = writers.Logged();
        logger_.UnInitialize();
        writers.Stop();
        ExpectAllBetween({}, accepted, ReadLogLines(file_));
    }
    // The count is zero again: one more start and stop writes only its own last line.
    RemoveFiles();
    logger_.Initialize(folder_.wstring());
    logger_.UnInitialize();
    EXPECT_THAT(ReadLogLines(file_), SizeIs(1));
}

TEST_F(LoggerConcurrency, ThreadsThatStartAndStopItByThemselvesEachGetTheirLines) {
    constexpr int kPairs = 200;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([this, i] {
            for (int pair = 0; pair < kPairs; ++pair) {
                logger_.Initialize(folder_.wstring());
                logger_.Log(kLogInfo, Writers::Name(i).c_str(), "%d", pair);
                logger_.UnInitialize();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    // A thread that logs inside its own start and stop loses nothing, whatever the others do.
    const std::vector<LogLine> lines = ReadLogLines(file_);
    for (int i = 0; i < kThreads; ++i) {
        SCOPED_TRACE(Writers::Name(i));
        const std::vector<int> numbers = NumbersOf(Writers::Name(i), lines);
        ASSERT_THAT(numbers, SizeIs(kPairs));
        for (int pair = 0; pair < kPairs; ++pair) EXPECT_EQ(numbers[pair], pair);
    }
}

}  // namespace
