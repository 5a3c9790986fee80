// The asynchronous file logger: callers format and queue, one thread writes.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <thread>

#include "log/ILog.h"
#include "log/LineTime.h"
#include "platform/Mutex.h"
#include "platform/SlimMutex.h"

namespace vela {

struct LogEntry {
    std::uint32_t level;
    std::string message;
    bool write;  // false: taken off the queue without reaching the file
    std::string functionName;
};

// Locks: `initMutex_` is taken first and, inside it, `queueMutex_`; the writer thread takes
// `queueMutex_` and `fileMutex_` one at a time, never together. No outside code is called while
// `queueMutex_` is held.
class Logger : public ILog {
 public:
    Logger();

    void Initialize(const std::wstring& directory) override;
    void UnInitialize() override;
    void Log(std::uint32_t level, const char* functionName, const char* format, ...) override
        VELA_PRINTF_FORMAT(4, 5);
    void Debug(const std::string& message, const std::string& functionName) override;
    void Error(const std::string& message, const std::string& functionName) override;
    void Info(const std::string& message, const std::string& functionName) override;
    void Warning(const std::string& message, const std::string& functionName) override;

 private:
    bool TakesLines() const;
    void EnqueueLogEntry(std::uint32_t level, std::string message, bool write,
                         std::string functionName);

    // These run on the writer thread.
    void LogThreadProc();
    void FlushLogQueue();
    void WriteLogEntry(const LogEntry& entry);
    std::string FormatLogLine(std::uint32_t level, const std::string& message,
                              const std::string& functionName);
    void CheckErrorLogSize();
    void BackupLogFile();

    std::wstring logPath_;  // changes only while no writer thread runs
    std::map<std::uint32_t, std::string> levelNames_;
    std::wstring fileName_;  // only for debuggers; Initialize appends the name itself
    Mutex fileMutex_;        // guards: rotation and every write to the file
    std::atomic<bool> running_{false};
    std::atomic<bool> stop_{false};  // set under queueMutex_
    std::thread writerThread_;
    SlimMutex queueMutex_;  // guards: queue_
    SlimConditionVariable queueCondition_;
    std::deque<LogEntry> queue_ VELA_GUARDED_BY(queueMutex_);
    Mutex initMutex_;  // guards: Initialize against UnInitialize, and referenceCount_
    std::uint32_t referenceCount_ VELA_GUARDED_BY(initMutex_) = 0;
    LineTime lineTime_;  // the writer thread's
};

}  // namespace vela
