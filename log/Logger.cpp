#include "log/Logger.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <utility>

#include "platform/Lock.h"
#include "platform/ProcessEnd.h"

namespace vela {
namespace {

// All but a few of the agent's own texts fit.
constexpr std::size_t kShortText = 256;

// The text of one that is too long for a short one: measured first. Empty also when it cannot be
// formatted.
std::string FormatLongText(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = _vscprintf(format, arguments);
    std::string text;
    if (length > 0) {
        // The formatter ends the text with a null character.
        text.resize(static_cast<std::size_t>(length) + 1);
        const int written = _vsnprintf(text.data(), text.size(), format, again);
        text.resize(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    va_end(again);
    return text;
}

std::string FormatText(const char* format, va_list arguments) {
    char buffer[kShortText];
    va_list again;
    va_copy(again, arguments);
    const int written = _vsnprintf(buffer, kShortText, format, arguments);
    // Negative: the text is longer, or cannot be formatted, which measuring it will tell.
    std::string text = written >= 0 ? std::string(buffer, static_cast<std::size_t>(written))
                                    : FormatLongText(format, again);
    va_end(again);
    return text;
}

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
        // A start that failed is not to be matched by an UnInitialize.
        --referenceCount_;
        throw;
    }
    running_ = true;
}

void Logger::UnInitialize() {
    // The writer thread is gone, and what was queued with it.
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

void Logger::Log(std::uint32_t level, const std::string& functionName, const char* format, ...) {
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

// Static objects log from their destructors even when the process is ending. Nobody would write
// their lines, and a thread that is gone may have held the queue's lock.
bool Logger::TakesLines() const { return running_ && !IsProcessEnding(); }

void Logger::EnqueueLogEntry(std::uint32_t level, std::string message, bool write,
                             const std::string& functionName) {
    if (!TakesLines() || stop_) return;
    const Lock queueLock(queueMutex_);
    // Checked again under the lock that guards its setting: an entry appended after the stop would
    // come after the last drain of the queue.
    if (stop_) return;
    queue_.push_back({level, std::move(message), write, functionName});
    queueCondition_.notify_all();
}

}  // namespace vela
