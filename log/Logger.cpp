#include "log/Logger.h"

#include <windows.h>

#include <cstdarg>
#include <utility>

#include "log/LogFile.h"
#include "log/LogText.h"
#include "platform/Lock.h"
#include "platform/ProcessEnd.h"

namespace vela {
namespace {

// 5 MiB: a support engineer can still mail the file and its backup.
constexpr std::uint64_t kMaximumFileSize = 0x500000;

// A line's time, level and punctuation.
constexpr std::size_t kLongestPrefix = sizeof("[2024-05-06 17:41:58] {WARNING @ } \n");

}  // namespace

Logger::Logger()
    : levelNames_{{kLogError, "ERROR"},
                  {kLogWarning, "WARNING"},
                  {kLogInfo, "INFO"},
                  {kLogDebug, "DEBUG"}},
      fileName_(L"VelaAgent.log") {
    CheckErrorLogSize();
}

void Logger::Initialize(const std::wstring& directory) {
    const Lock initLock(initMutex_);
    if (running_) {
        ++referenceCount_;
        return;
    }
    logPath_ = directory;
    logPath_ += L"\\VelaAgent.log";
    ++referenceCount_;
    stop_ = false;
    try {
        writerThread_ = std::thread(&Logger::LogThreadProc, this);
    } catch (...) {
        // A failed start is not paired with an UnInitialize.
        --referenceCount_;
        throw;
    }
    running_ = true;
}

void Logger::UnInitialize() {
    // The writer thread is gone, and the queued lines with it.
    if (IsProcessEnding()) return;
    const Lock initLock(initMutex_);
    if (!running_) return;
    if (--referenceCount_ > 0) return;
    EnqueueLogEntry(kLogInfo, "Logger::UnInitialize", true, "UnInitialize");
    {
        const Lock queueLock(queueMutex_);
        stop_ = true;
        queueCondition_.notify_all();
    }
    writerThread_.join();
    writerThread_ = std::thread();
    running_ = false;
}

void Logger::Log(std::uint32_t level, const char* functionName, const char* format, ...) {
    if (!TakesLines()) return;

    va_list arguments;
    va_start(arguments, format);
    std::string text = FormatText(format, arguments);
    va_end(arguments);
    if (text.empty()) return;
    EnqueueLogEntry(level, std::move(text), level != kLogDebug, functionName);
}

void Logger::Debug(const std::string& message, const std::string& functionName) {
    EnqueueLogEntry(kLogDebug, message, false, functionName);
}

void Logger::Error(const std::string& message, const std::string& functionName) {
    EnqueueLogEntry(kLogError, message, true, functionName);
}

void Logger::Info(const std::string& message, const std::string& functionName) {
    EnqueueLogEntry(kLogInfo, message, true, functionName);
}

void Logger::Warning(const std::string& message, const std::string& functionName) {
    EnqueueLogEntry(kLogWarning, message, true, functionName);
}

// Static objects log from their destructors even when the process is ending. No thread would write
// their lines, and a thread that is gone may have held the queue's lock.
bool Logger::TakesLines() const { return running_ && !IsProcessEnding(); }

void Logger::EnqueueLogEntry(std::uint32_t level, std::string message, bool write,
                             std::string functionName) {
    if (!TakesLines() || stop_) return;
    {
        const Lock queueLock(queueMutex_);
        // The flag is checked again under the lock that guards its setting: an entry appended after
        // the stop would miss the last drain of the queue.
        if (stop_) return;
        queue_.push_back({level, std::move(message), write, std::move(functionName)});
    }
    // The writer needs the lock as soon as it is awake.
    queueCondition_.notify_all();
}

void Logger::LogThreadProc() {
    // The writer takes all queued entries at once, so that callers seldom wait for the queue's
    // lock.
    std::deque<LogEntry> taken;
    while (!stop_) {
        {
            const Lock queueLock(queueMutex_);
            while (queue_.empty() && !stop_) queueCondition_.wait(queueMutex_);
            if (stop_) break;
            taken.swap(queue_);
        }
        for (; !taken.empty(); taken.pop_front()) WriteLogEntry(taken.front());
    }
    FlushLogQueue();
}

// Writes the rest: nothing is queued any more once the stop flag is set.
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
    // Opens the file for every line, so that rotation and other readers never meet an open handle.
    const LogFile file(logPath_);
    file.Append(FormatLogLine(entry.level, entry.message, entry.functionName));
}

std::string Logger::FormatLogLine(std::uint32_t level, const std::string& message,
                                  const std::string& functionName) {
    // A string stream would bring the standard library's locales into the host's process: most of
    // the library's size.
    std::string line;
    line.reserve(kLongestPrefix + message.size() + functionName.size());
    line.append("[").append(lineTime_.Now()).append("] {").append(levelNames_.at(level));
    if (!functionName.empty()) line.append(" @ ").append(functionName);
    return line.append("} ").append(message).append("\n");
}

void Logger::CheckErrorLogSize() {
    if (logPath_.empty()) return;
    // One query per line returns whether there is a file, and its size.
    std::uint64_t size = 0;
    if (LogFile::GetSize(logPath_, size)) {
        if (size > kMaximumFileSize) BackupLogFile();
        return;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return;
    // A debug entry is never written; a warning here would itself query the size again.
    EnqueueLogEntry(kLogDebug, "file_size failed, GetLastError(" + std::to_string(error) + ")",
                    false, "CheckErrorLogSize");
}

// Keeps one backup. Neither result is checked: when no backup can be made the file only grows, and
// the next line tries again.
void Logger::BackupLogFile() {
    const std::wstring backupPath = logPath_ + L".old";
    const Lock fileLock(fileMutex_);
    DeleteFileW(backupPath.c_str());
    MoveFileW(logPath_.c_str(), backupPath.c_str());
}

}  // namespace vela
