// The size limit of the agent's log file, and its one backup.
#include <atomic>
#include <memory>
#include <thread>

#include "testing/acceptance/LogFileTest.h"
#include "testing/kit/windows/ChildProcess.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class LogRotationTest : public LogFileTest {};

TEST_F(LogRotationTest, AFileOfExactlyFiveMebibytesIsStillContinued) {
    Write(folder_.File(), std::string(kLogSizeLimit, 'x'));
    LogOneLine();
    // The line exceeds the limit, so the next one rotates the file.
    const std::string backup = Read(Backup());
    EXPECT_GT(backup.size(), kLogSizeLimit);
    EXPECT_THAT(backup.substr(kLogSizeLimit), EndsWith(std::string(kLine) + "\r\n"));
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLastLine));
}

TEST_F(LogRotationTest, AFileOfOneByteMoreBecomesTheBackupInPlaceOfTheOldOne) {
    const std::string before(kLogSizeLimit + 1, 'x');
    Write(folder_.File(), before);
    Write(Backup(), "an older backup");
    LogOneLine();
    EXPECT_TRUE(Read(Backup()) == before);
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

TEST_F(LogRotationTest, AnOldBackupStaysWhileThereIsRoom) {
    Write(Backup(), "an older backup");
    LogOneLine();
    EXPECT_EQ(Read(Backup()), "an older backup");
}

int WaitsToBeEnded(const std::filesystem::path&) {
    Sleep(INFINITE);
    return 0;
}

const RegisteredRole kWaitsToBeEnded{"WaitsToBeEnded", WaitsToBeEnded};

// Logs on a thread of its own continuously, but no faster than lines are written.
class SteadyLogging {
 public:
    explicit SteadyLogging(AgentDll& agent)
        : thread_([this, &agent] {
              while (!done_) {
                  for (int i = 0; i < 10; ++i) agent.UnInit();
                  Sleep(1);
              }
          }) {}
    ~SteadyLogging() {
        done_ = true;
        thread_.join();
    }
    SteadyLogging(const SteadyLogging&) = delete;
    SteadyLogging& operator=(const SteadyLogging&) = delete;

 private:
    std::atomic<bool> done_{false};
    std::thread thread_;
};

// A child that inherited the log's handle would prevent its renaming while it lives.
TEST_F(LogRotationTest, IsNotHeldUpByChildrenThatInheritHandles) {
    std::vector<std::unique_ptr<ChildProcess>> children;
    agent_.InitLogger(folder_.Path().c_str());
    {
        const SteadyLogging logging(agent_);
        for (int i = 0; i < 12; ++i) {
            children.push_back(std::make_unique<ChildProcess>("WaitsToBeEnded", folder_.Path(),
                                                              Inherits::Handles));
        }
    }
    agent_.UnInitLogger();
    const std::string before(kLogSizeLimit + 1, 'x');
    Write(folder_.File(), before);
    LogOneLine();
    EXPECT_TRUE(Read(Backup()) == before);
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

// Windows' C runtime takes the question mark for a wildcard and finds no file; Wine's finds it.
TEST_F(LogRotationTest, KnowsTheSizeBehindAVerbatimPathToo) {
    const std::string before(kLogSizeLimit + 1, 'x');
    Write(folder_.File(), before);
    LogOneLine(L"\\\\?\\" + folder_.Path().wstring());
    EXPECT_TRUE(Read(Backup()) == before);
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

TEST_F(LogRotationTest, IsNotHeldUpByAReaderThatPermitsIt) {
    const std::string before(kLogSizeLimit + 1, 'x');
    Write(folder_.File(), before);
    const HANDLE reader = CreateFileW(folder_.File().c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    LogOneLine();
    CloseHandle(reader);
    EXPECT_THAT(folder_.Lines(), ElementsAre(kLine, kLastLine));
}

}  // namespace
}  // namespace acceptance
