// Exit codes of the commands. Scripts read them, so the numbers must not change.
#pragma once

#include <stdexcept>
#include <string>

namespace velactl {

enum ExitCode : int {
    kDone = 0,
    kFailed = 1,
    kUsage = 2,
    kNoTouchpad = 3,
    kHeldByOther = 4,
    kNoLibrary = 5,
};

constexpr char kExitCodesHelp[] =
    "Exit codes: 0 done, 1 failed (or a check of doctor did), 2 wrong usage, 3 no touchpad found\n"
    "or it cannot be opened, 4 held by another process, 5 VelaAgent.dll cannot be loaded";

// Ends the command with one line on standard error.
class Failure : public std::runtime_error {
 public:
    explicit Failure(const std::string& text, ExitCode code = kFailed)
        : std::runtime_error(text), code_(code) {}
    ExitCode Code() const { return code_; }

 private:
    ExitCode code_;
};

}  // namespace velactl
