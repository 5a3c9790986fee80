// The interface through which every component of the agent writes its diagnostics.
#pragma once

#include <cstdint>
#include <string>

// Lets the compiler check printf formats against their arguments where it can. Only g++ has a name
// for the platform's formats; clang uses printf's for them when it compiles for Windows.
#if defined(__MINGW32__) && !defined(__clang__)
#define VELA_PRINTF_FORMAT(text, first) __attribute__((format(ms_printf, text, first)))
#elif defined(__GNUC__)
#define VELA_PRINTF_FORMAT(text, first) __attribute__((format(printf, text, first)))
#else
#define VELA_PRINTF_FORMAT(text, first)
#endif

namespace vela {

// Callers pass these numbers, and the queue carries them.
enum LogLevel : std::uint32_t {
    kLogError = 0,
    kLogWarning = 1,
    kLogInfo = 2,
    kLogDebug = 3,  // queued, never written
};

// All operations may be called from any thread. Logging operations return at once: the file is
// written by a thread of the logger's own.
class ILog {
 public:
    // Starts writing to "VelaAgent.log" in `directory`, which is not checked. Calls nest: a second
    // one is only counted, and its directory is ignored. Throws std::system_error when the writer
    // thread cannot be started.
    virtual void Initialize(const std::wstring& directory) = 0;

    // Ends one Initialize. The last one writes what is queued and returns when it is in the file.
    // Does nothing in a process that is ending.
    virtual void UnInitialize() = 0;

    // Formats with the platform's printf. The file is UTF-8: wide text is passed as "%s" of its
    // Utf8(). Drops the line, unformatted, while the logger is not initialised or the process is
    // ending, and drops a text that is empty or cannot be formatted. `level` is 0 to 3: any other
    // ends the process when the line is written.
    virtual void Log(std::uint32_t level, const char* functionName, const char* format, ...)
        VELA_PRINTF_FORMAT(4, 5) = 0;

    // Queue the message unchanged.
    virtual void Debug(const std::string& message, const std::string& functionName) = 0;
    virtual void Error(const std::string& message, const std::string& functionName) = 0;
    virtual void Info(const std::string& message, const std::string& functionName) = 0;
    virtual void Warning(const std::string& message, const std::string& functionName) = 0;

    virtual ~ILog() = default;
};

// The process's one logger, made on first use and never destroyed: records and sessions log from
// their destructors at process exit.
ILog* GetLogger();

}  // namespace vela
