#include "tools/velactl/Notes.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

#include "log/ILog.h"

namespace velactl {
namespace {

// Only the main thread uses it.
class NoteTaker : public vela::ILog {
 public:
    void Initialize(const std::wstring&) override {}
    void UnInitialize() override {}
    void Log(std::uint32_t level, const char*, const char* format, ...) override {
        if (level > vela::kLogWarning) return;
        va_list arguments{};
        va_start(arguments, format);
        char text[512] = {};
        // A longer text is truncated.
        _vsnprintf(text, sizeof(text) - 1, format, arguments);
        va_end(arguments);
        notes_.emplace_back(text);
    }
    void Debug(const std::string&, const std::string&) override {}
    void Error(const std::string& message, const std::string&) override {
        notes_.push_back(message);
    }
    void Info(const std::string&, const std::string&) override {}
    void Warning(const std::string& message, const std::string&) override {
        notes_.push_back(message);
    }

    std::vector<std::string> Take() { return std::exchange(notes_, {}); }

 private:
    std::vector<std::string> notes_;
};

NoteTaker& Notes() {
    static NoteTaker notes;
    return notes;
}

}  // namespace

std::vector<std::string> TakeNotes() { return Notes().Take(); }

}  // namespace velactl

namespace vela {

ILog* GetLogger() { return &velactl::Notes(); }

}  // namespace vela
