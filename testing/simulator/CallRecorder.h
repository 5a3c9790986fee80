// Records the calls of the simulated platform functions. Each of them begins with
//
//     const auto arguments = Arguments(HandleName(device), Count(length));
//     if (const auto fault = Enter("HidD_GetFeature", arguments)) {
//         return fault->Failed<BOOLEAN>(FALSE);
//     }
//
// Enter records the call and returns the fault that a test has set for it, if any.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <windows.h>

#include "testing/simulator/Calls.h"

namespace simulator {

class Injected {
 public:
    Injected(const Fault& fault, bool keepsLastError)
        : fault_(fault), keepsLastError_(keepsLastError) {}

    // Sets the thread's last error from the fault and returns the fault's result, or `ordinary`
    // when it has none.
    template <typename Result>
    Result Failed(Result ordinary) const {
        Apply();
        if (!fault_.result) return ordinary;
        return (Result)(std::intptr_t)*fault_.result;  // integers and handles alike
    }

 private:
    void Apply() const;

    Fault fault_;
    bool keepsLastError_;  // when the fault has no error
};

std::optional<Injected> Enter(const char* function, const std::string& arguments);
// Does the same for a call on a real file, which is recorded and can fail only after a test has
// called Machine::RecordFileCalls(true).
std::optional<Injected> EnterFileCall(const char* function, const std::string& arguments);

// Adds a line to Machine::Misuse.
void NoteMisuse(const std::string& text);

// Argument texts, in the forms that Calls.h lists. Arguments joins the non-empty ones with ", ".
std::string Hex(std::uint64_t value);
std::string Count(std::uint64_t value);
std::string HandleName(HANDLE handle);
std::string Quoted(const wchar_t* text);
std::string HexBytes(const void* bytes, std::size_t length);

template <typename... Texts>
std::string Arguments(const Texts&... texts) {
    std::string joined;
    const auto append = [&joined](const std::string& text) {
        if (text.empty()) return;
        if (!joined.empty()) joined += ", ";
        joined += text;
    };
    (append(texts), ...);
    return joined;
}

}  // namespace simulator
