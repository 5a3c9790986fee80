// The log file's one backup and its size limit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "log/ILog.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/simulator/Machine.h"

namespace {

using simulator::Fault;
using simulator::Machine;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;
using vela::kLogInfo;

constexpr std::uintmax_t kLimit = 5242880;
const std::string kLastLine = "Logger::UnInitialize";

class LoggerRotation : public testing::Test {
 protected:
    LoggerRotation() { Machine::Get().Reset(); }

    std::filesystem::path Backup() const { return file_.string() + ".old"; }

    // Writes a file of one line that ends with `text` and is `size` bytes long in all.
    static void MakeFile(const std::filesystem::path& file, std::uintmax_t size,
                         const std::string& text) {
        const std::string head = "[2024-05-06 17:41:58] {INFO} ";
        std::ofstream(file, std::ios::binary)
            << head << std::string(size - head.size() - text.size() - 2, '.') << text << "\r\n";
        ASSERT_EQ(std::filesystem::file_size(file), size);
    }
    // Returns only the end of each line.
    static std::vector<std::string> Messages(const std::filesystem::path& file) {
        std::vector<std::string> messages;
        std::ifstream stream(file, std::ios::binary);
        for (std::string line; std::getline(stream, line, '\r') && stream.ignore();) {
            messages.push_back(line.substr(line.find_last_of(".} ") + 1));
        }
        return messages;
    }

    void Write(std::initializer_list<const char*> messages) {
        logger_.Initialize(folder_.wstring());
        for (const char* const message : messages) logger_.Log(kLogInfo, "f", "%s", message);
        logger_.UnInitialize();
    }

    const LogFolder logFolder_;
    std::filesystem::path folder_ = logFolder_.Path();
    std::filesystem::path file_ = logFolder_.File();
    vela::ILog& logger_ = *vela::GetLogger();
};

TEST_F(LoggerRotation, TheLineThatPassesTheLimitIsTheLastOfItsFile) {
    MakeFile(file_, kLimit, "old");
    Write({"passing", "next"});
    EXPECT_THAT(Messages(Backup()), ElementsAre("old", "passing"));
    EXPECT_THAT(Messages(file_), ElementsAre("next", kLastLine));
}

TEST_F(LoggerRotation, KeepsOneGeneration) {
    MakeFile(Backup(), 100, "oldest");
    MakeFile(file_, kLimit + 1, "old");
    logger_.Initialize(folder_.wstring());
    const std::string text = std::string(kLimit, '.') + "long";
    logger_.Info(text, "f");
    logger_.Info("next", "f");
    logger_.UnInitialize();
    EXPECT_THAT(Messages(Backup()), ElementsAre("long"));
    EXPECT_THAT(Messages(file_), ElementsAre("next", kLastLine));
    EXPECT_EQ(Machine::Get().CountCalls("MoveFileW"), 2U);
}

TEST_F(LoggerRotation, TriesToMoveWhatItCouldNotMakeRoomFor) {
    MakeFile(Backup(), 100, "oldest");
    MakeFile(file_, kLimit + 1, "old");
    Machine::Get().FailNext("DeleteFileW", Fault::Error(32));
    Write({"line"});
    // The first line could not delete the old backup; the last one tried again.
    EXPECT_THAT(Messages(Backup()), ElementsAre("old", "line"));
    EXPECT_THAT(Messages(file_), ElementsAre(kLastLine));
    EXPECT_EQ(Machine::Get().CountCalls("MoveFileW"), 2U);
    EXPECT_THAT(Machine::Get().DebugOutput(), IsEmpty());
}

TEST_F(LoggerRotation, MovesAFileThatHasNoBackupYet) {
    MakeFile(file_, kLimit + 1, "old");
    Write({});
    EXPECT_THAT(Messages(Backup()), ElementsAre("old"));
    EXPECT_THAT(Messages(file_), ElementsAre(kLastLine));
}

TEST_F(LoggerRotation, RenamesNothingBelowTheLimit) {
    MakeFile(file_, kLimit / 2, "old");
    Write({"line"});
    EXPECT_THAT(Messages(file_), ElementsAre("old", "line", kLastLine));
    EXPECT_THAT(Machine::Get().Calls(), IsEmpty());
}

}  // namespace
