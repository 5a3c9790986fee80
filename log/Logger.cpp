#include "log/Logger.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <vector>

namespace vela {

Logger::Logger()
    : levelNames_{{kLogError, "ERROR"},
                  {kLogWarning, "WARNING"},
                  {kLogInfo, "INFO"},
                  {kLogDebug, "DEBUG"}},
      fileName_(L"VelaAgent.log") {
    CheckErrorLogSize();
}

void Logger::Initialize(const std::wstring& directory) {
    const std::lock_guard<std::mutex> initLock(initMutex_);
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
        // A start that failed is not to be matched by an UnInitialize.
        --referenceCount_;
        throw;
    }
    running_ = true;
}

void Logger::UnInitialize() {
    const std::lock_guard<std::mutex> initLock(initMutex_);
    if (!running_) return;
    if (--referenceCount_ > 0) return;
    EnqueueLogEntry(kLogInfo, "Logger::UnInitialize", true, "UnInitialize");
    {
        const std::lock_guard<std::mutex> queueLock(queueMutex_);
        stop_ = true;
        queueCondition_.notify_all();
    }
    writerThread_.join();
    writerThread_ = std::thread();
    running_ = false;
}

void Logger::Log(std::uint32_t level, const std::string& functionName, const char* format, ...) {
    if (!running_) return;

    va_list arguments;
    va_start(arguments, format);
    const int length = _vscprintf(format, arguments);
    va_end(arguments);
    if (length < 0) return;

    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    va_start(arguments, format);
    const int written = _vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    if (written <= 0) return;

    EnqueueLogEntry(level, std::string(text.data(), static_cast<std::size_t>(written)),
                    level != kLogDebug, functionName);
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

void Logger::EnqueueLogEntry(std::uint32_t level, const std::string& message, bool write,
                             const std::string& functionName) {
    if (!running_ || stop_) return;
    const std::lock_guard<std::mutex> queueLock(queueMutex_);
    // Asked again under the lock that guards its setting: an entry appended after the stop would
    // race with the drain, which reads the queue without a lock.
    if (stop_) return;
    queue_.push_back({level, message, write, functionName});
    queueCondition_.notify_all();
}

}  // namespace vela
