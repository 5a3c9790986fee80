// The logger's writer thread: takes entries off the queue, turns each into a line, appends it to
// the file and keeps the file below its size limit.
#include <windows.h>

#include <cstdint>
#include <ctime>
#include <sstream>
#include <string>
#include <utility>

#include "log/Logger.h"
#include "platform/FileHandle.h"
#include "platform/Lock.h"

namespace vela {
namespace {

// 5 MiB: a support engineer can still mail the file and its backup.
constexpr std::uint64_t kMaximumFileSize = 0x500000;

// Not for child processes, and with no claim to the file: whoever has it open, it can be read,
// written, renamed and deleted meanwhile. The system finds the end of the file at each write.
HANDLE OpenForAppending(const std::wstring& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return CreateFileW(path.c_str(), FILE_APPEND_DATA, kShareAll, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// With a carriage return before each line feed, as in every text file of the platform.
std::string WithCarriageReturns(const std::string& text) {
    std::string result;
    result.reserve(text.size() + 1);
    for (const char character : text) {
        if (character == '\n') result += '\r';
        result += character;
    }
    return result;
}

// In one piece. False when not all of it is in the file; the last error tells why.
bool Append(HANDLE file, const std::string& text) {
    const auto size = static_cast<DWORD>(text.size());
    DWORD written = 0;
    return WriteFile(file, text.data(), size, &written, nullptr) && written == size;
}

bool GetSize(const std::wstring& path, std::uint64_t& size) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return false;
    size = std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
    return true;
}

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
    // Opened anew for every line, so that rotation and outside readers never meet an open handle.
    const FileHandle file(OpenForAppending(logPath_));
    const std::string line = FormatLogLine(entry.level, entry.message, entry.functionName);
    // A file that cannot be opened stays silent; a line that does not reach an open file, as on a
    // full disk, is reported to the debugger.
    if (!file.IsValid() || Append(file.Get(), WithCarriageReturns(line))) return;
    const std::string error = std::to_string(GetLastError());
    OutputDebugStringA(("VelaAgent.log: WriteFile failed, GetLastError(" + error + ")").c_str());
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
    // One query, made for every line, tells both: whether there is a file, and its size.
    std::uint64_t size = 0;
    if (GetSize(logPath_, size)) {
        if (size > kMaximumFileSize) BackupLogFile();
        return;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return;
    // A debug entry, which is never written: a warning here would itself query the size again.
    EnqueueLogEntry(kLogDebug, "file_size failed, GetLastError(" + std::to_string(error) + ")",
                    false, "CheckErrorLogSize");
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
