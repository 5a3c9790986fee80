// Starting and stopping the logger: the place of its file, nested calls, and failed starts.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <thread>

#include "log/ILog.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/simulator/Machine.h"

namespace {

std::atomic<bool> refuseThreads{false};

}  // namespace

// Replaces the C library's function, for a process that may start no more threads.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*start)(void*), void* argument) noexcept {
    if (refuseThreads) return EAGAIN;
    static const auto create =
        reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return create(thread, attributes, start, argument);
}

namespace {

using simulator::Machine;
using namespace kit;
using testing::ElementsAre;
using vela::kLogInfo;

const std::string kLastLine = "INFO UnInitialize: Logger::UnInitialize";

std::vector<std::string> Texts(const std::filesystem::path& file) {
    std::vector<std::string> texts;
    for (const LogLine& line : ReadLogLines(file)) texts.push_back(line.Text());
    return texts;
}

class LoggerLifecycle : public testing::Test {
 protected:
    LoggerLifecycle() { Machine::Get().Reset(); }

    void WriteALineTo(const std::wstring& directory) {
        logger_.Initialize(directory);
        logger_.Log(kLogInfo, "f", "line");
        logger_.UnInitialize();
    }

    const LogFolder logFolder_;
    std::filesystem::path folder_ = logFolder_.Path();
    std::filesystem::path file_ = logFolder_.File();
    vela::ILog& logger_ = *vela::GetLogger();
};

// --- the place of the file -----------------------------------------------------------------------

TEST_F(LoggerLifecycle, AppendsTheFilesNameToAnyDirectoryUnchecked) {
    WriteALineTo(folder_.wstring() + L"\\");
    EXPECT_THAT(Texts(folder_.string() + "\\\\VelaAgent.log"),
                ElementsAre("INFO f: line", kLastLine));
}

TEST_F(LoggerLifecycle, WithAnEmptyDirectoryWritesToTheRootOfTheCurrentDrive) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_);
    WriteALineTo(L"");
    std::filesystem::current_path(before);
    // On Linux a backslash is part of the file name.
    EXPECT_THAT(Texts(folder_ / "\\VelaAgent.log"), ElementsAre("INFO f: line", kLastLine));
}

// --- nesting -------------------------------------------------------------------------------------

TEST_F(LoggerLifecycle, EndsWithAsManyStopsAsStarts) {
    for (int i = 0; i < 3; ++i) logger_.Initialize(folder_.wstring());
    for (const char* const message : {"three", "two", "one", "none"}) {
        logger_.Log(kLogInfo, "f", "%s", message);
        logger_.UnInitialize();
    }
    EXPECT_THAT(Texts(file_),
                ElementsAre("INFO f: three", "INFO f: two", "INFO f: one", kLastLine));
}

TEST_F(LoggerLifecycle, CountsFromZeroAfterEveryEnd) {
    for (int i = 0; i < 3; ++i) WriteALineTo(folder_.wstring());
    EXPECT_THAT(Texts(file_), ElementsAre("INFO f: line", kLastLine, "INFO f: line", kLastLine,
                                          "INFO f: line", kLastLine));
}

// Each thread logs between its own start and stop, so no line may be lost.
TEST_F(LoggerLifecycle, MayBeStartedAndStoppedByManyThreads) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 50;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, thread] {
            for (int round = 0; round < kRounds; ++round) {
                logger_.Initialize(folder_.wstring());
                logger_.Log(kLogInfo, std::to_string(thread).c_str(), "%d", round);
                logger_.UnInitialize();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    std::vector<int> next(kThreads);
    for (const LogLine& line : ReadLogLines(file_)) {
        if (line.function == "UnInitialize") continue;
        EXPECT_EQ(line.message, std::to_string(next[std::stoul(line.function)]++));
    }
    EXPECT_THAT(next, testing::Each(kRounds));
}

// --- a logger that is not running ----------------------------------------------------------------

TEST_F(LoggerLifecycle, DoesNotEvenFormatWhileItDoesNotRun) {
    const auto* const nowhere = reinterpret_cast<const char*>(1);
    logger_.Log(kLogInfo, "f", "%s", nowhere);
    { AgentLog log; }
    logger_.Log(kLogInfo, "f", "%s", nowhere);
}

TEST_F(LoggerLifecycle, AStartWithoutAThreadIsRaisedAndDoesNotCount) {
    refuseThreads = true;
    try {
        logger_.Initialize(folder_.wstring());
        ADD_FAILURE() << "the start did not fail";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::resource_unavailable_try_again);
    }
    refuseThreads = false;
    logger_.Log(kLogInfo, "f", "lost");
    logger_.UnInitialize();
    EXPECT_FALSE(std::filesystem::exists(file_));

    WriteALineTo(folder_.wstring());
    logger_.Log(kLogInfo, "f", "too late");
    EXPECT_THAT(Texts(file_), ElementsAre("INFO f: line", kLastLine));
}

// --- single lines that are lost ------------------------------------------------------------------

TEST_F(LoggerLifecycle, GoesOnAfterALineThatDidNotReachTheFile) {
    std::filesystem::create_symlink("/dev/full", file_);
    logger_.Initialize(folder_.wstring());
    logger_.Log(kLogInfo, "f", "lost");
    while (Machine::Get().DebugOutput().empty()) std::this_thread::yield();
    std::filesystem::remove(file_);
    logger_.Log(kLogInfo, "f", "line");
    logger_.UnInitialize();
    EXPECT_THAT(Texts(file_), ElementsAre("INFO f: line", kLastLine));
    EXPECT_THAT(Machine::Get().DebugOutput(), testing::SizeIs(1));
}

TEST_F(LoggerLifecycle, WritesAMessageThatEndsBeforeItsBytesDo) {
    AgentLog log;
    logger_.Info(std::string("a\0b", 3), "f");
    log.Finish();
    EXPECT_THAT(kit::FileText(log.File()), testing::HasSubstr(std::string("} a\0b\r\n", 7)));
}

}  // namespace
