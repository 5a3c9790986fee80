// The platform calls that a recording made: what each returned, how long it took, and who answered.
#pragma once

#include <windows.h>

#include <chrono>
#include <nlohmann/json.hpp>

#include "tools/recording/HexText.h"

namespace recording {

using Json = nlohmann::ordered_json;

// The system keeps what a device said when it was started. Only what it does not keep is requested
// from the device itself.
enum class AnsweredBy { kSystem, kDevice };

class CallRecord {
 public:
    // Makes a call that returns true, or else false and sets the last error.
    template <typename Call>
    bool Make(const char* name, AnsweredBy answeredBy, Call call) {
        const auto start = std::chrono::steady_clock::now();
        const bool done = call();
        const DWORD error = done ? 0 : GetLastError();
        Append(name, answeredBy, start, "error", error);
        return done;
    }
    // Makes a call of the HID parser, which works on the preparsed data alone.
    template <typename Call>
    NTSTATUS Parse(const char* name, Call call) {
        const auto start = std::chrono::steady_clock::now();
        const NTSTATUS status = call();
        Append(name, AnsweredBy::kSystem, start, "status", Hex(static_cast<std::uint32_t>(status)));
        return status;
    }

    // Returns [{"call", "answeredBy", "error" or "status", "microseconds"}, ...] in call order.
    const Json& Calls() const { return calls_; }

 private:
    void Append(const char* name, AnsweredBy answeredBy,
                std::chrono::steady_clock::time_point start, const char* result, Json value) {
        const auto time = std::chrono::steady_clock::now() - start;
        calls_.push_back({{"call", name},
                          {"answeredBy", answeredBy == AnsweredBy::kDevice ? "device" : "system"},
                          {result, std::move(value)},
                          {"microseconds",
                           std::chrono::duration_cast<std::chrono::microseconds>(time).count()}});
    }

    Json calls_ = Json::array();
};

}  // namespace recording
