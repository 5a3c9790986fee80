#include "testing/simulator/CallRecorder.h"

#include <cstdio>
#include <string_view>

#include "testing/simulator/MachineState.h"
#include "testing/simulator/Text.h"

namespace simulator {
namespace {

// HidP functions return a status and have no last error to set.
bool ReturnsStatus(std::string_view function) { return function.substr(0, 5) == "HidP_"; }

}  // namespace

void Injected::Apply() const {
    if (fault_.error == 0 && keepsLastError_) return;
    SetLastError(fault_.error);
}

std::optional<Injected> Enter(const char* function, const std::string& arguments) {
    Call call{0, function, arguments, std::this_thread::get_id()};
    std::optional<Fault> fault;
    std::shared_ptr<const FaultPolicy> policy;
    {
        const MachineLock lock;
        State().calls.Add(call);
        State().changed.notify_all();
        fault = State().faults.Take(function);
        policy = State().faults.Policy();
    }
    if (!fault && policy != nullptr) fault = (*policy)(call);
    if (!fault) return std::nullopt;
    return Injected(*fault, ReturnsStatus(function));
}

std::optional<Injected> EnterFileCall(const char* function, const std::string& arguments) {
    {
        const MachineLock lock;
        if (!State().recordsFileCalls) return std::nullopt;
    }
    return Enter(function, arguments);
}

void NoteMisuse(const std::string& text) {
    const MachineLock lock;
    State().misuse.push_back(text);
}

std::string Hex(std::uint64_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(value));
    return text;
}

std::string Count(std::uint64_t value) { return std::to_string(value); }

std::string Quoted(const wchar_t* text) {
    if (text == nullptr) return "null";
    return "\"" + Utf8(text) + "\"";
}

std::string HexBytes(const void* bytes, std::size_t length) {
    constexpr char kDigits[] = "0123456789abcdef";
    if (bytes == nullptr) return "null";
    std::string text;
    const auto* const begin = static_cast<const std::uint8_t*>(bytes);
    for (std::size_t i = 0; i < length; ++i) {
        if (i != 0) text += ' ';
        text += kDigits[begin[i] >> 4];
        text += kDigits[begin[i] & 0xF];
    }
    return text;
}

}  // namespace simulator
