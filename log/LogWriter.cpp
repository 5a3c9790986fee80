// The logger's writer thread: takes entries off the queue, turns each into a line, appends it to
// the file and keeps the file below its size limit.
#include <windows.h>

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include "log/Logger.h"
#include "platform/Lock.h"

namespace vela {
namespace {

// 5 MiB: a support engineer can still mail the file and its backup.
constexpr std::uintmax_t kMaximumFileSize = 0x500000;

}  // namespace

void Logger::LogThreadProc() {
    while (!stop_) {
        LogEntry entry{};
        {
            const Lock queueLock(queueMutex_);
            while (queue_.empty() && !stop_) queueCondition_.wait(queueMutex_);
            if (stop_) break;
            entry = std::move(queue_.front());
            queue_.pop_front();
        }
        WriteLogEntry(entry);
    }
    FlushLogQueue();
}

// Once the stop flag is set nothing is queued any more, so that this is all there is.
void Logger::FlushLogQueue() {
    std::deque<LogEntry> rest;
    {
        const Lock queueLock(queueMutex_);
        rest.swap(queue_);
    }
    for (const LogEntry& entry : rest) WriteLogEntry(entry);
}

void Logger::WriteLogEntry(const LogEntry& entry) {
    if (!entry.write) return;
    if (logPath_.empty()) return;
    CheckErrorLogSize();

    const Lock fileLock(fileMutex_);
    try {
        // Opened anew for every line, so that rotation and outside readers never meet an open
        // handle.
        std::ofstream file;
        // A file that cannot be opened stays silent (that sets only the fail bit); a line that does
        // not reach an open file, as on a full disk, is told to the debugger.
        file.exceptions(std::ios::badbit);
        file.open(std::filesystem::path(logPath_), std::ios::app);
        const std::string line = FormatLogLine(entry.level, entry.message, entry.functionName);
        if (file.is_open()) file << line << std::flush;
    } catch (const std::ios_base::failure& failure) {
        OutputDebugStringA(failure.what());
    }
}

std::string Logger::FormatLogLine(std::uint32_t level, const std::string& message,
                                  const std::string& functionName) const {
    const __time64_t now = _time64(nullptr);
    std::tm localTime{};
    _localtime64_s(&localTime, &now);
    char timeText[80] = {};
    std::strftime(timeText, sizeof(timeText), "%Y-%m-%d %H:%M:%S", &localTime);

    std::ostringstream line;
    line << '[' << timeText << "] {" << levelNames_.at(level);
    if (!functionName.empty()) line << " @ " << functionName;
    line << "} " << message << std::endl;
    return line.str();
}

void Logger::CheckErrorLogSize() {
    if (logPath_.empty()) return;
    const std::filesystem::path path(logPath_);
    // One question, asked for every line, answers both: whether there is a file, and its size.
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (!error) {
        if (size > kMaximumFileSize) BackupLogFile();
        return;
    }
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
        return;
    }
    // A debug entry, which is never written: a warning here would itself ask for the size again.
    EnqueueLogEntry(kLogDebug, "file_size: " + error.message(), false, "CheckErrorLogSize");
}

// Keeps one generation. Neither result is tested: a backup that cannot be made only lets the file
// grow, and the next line tries again.
void Logger::BackupLogFile() {
    const std::wstring backupPath = logPath_ + L".old";
    const Lock fileLock(fileMutex_);
    DeleteFileW(backupPath.c_str());
    MoveFileW(logPath_.c_str(), backupPath.c_str());
}

}  // namespace vela
