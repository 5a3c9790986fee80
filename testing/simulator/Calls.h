// The record of a platform call, and the fault with which a test makes one fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>

namespace simulator {

// One platform call, in the order in which the machine received it.
//
// `arguments` is text made for comparing in a test, in the function's own argument order:
//   - handles by kind and number of creation since Reset: "file#1", "event#2", "mutex#3",
//     "devices#4" (a device information list); "null"; "invalid" (all bits set);
//   - masks, flags, access rights, usages, usage pages and values of a report in lower-case hex
//     ("0xff80", "0x20"); counts, lengths, indices and milliseconds in decimal ("30000",
//     "infinite"); GUIDs in braces ("{4d1e55b2-...}");
//   - HIDP_REPORT_TYPE as "input", "output", "feature" (or the number);
//   - wide strings in double quotes, converted to UTF-8;
//   - input byte buffers as pairs of hex digits ("02 00 03"), usage lists as "[0x1 0x4]";
//   - pointers to results, preparsed data, report buffers of HidP calls, security attributes,
//     templates and OVERLAPPED records are left out (the OVERLAPPED's event stands in its place).
struct Call {
    std::size_t index = 0;  // position among all calls since Reset
    std::string function;   // "WriteFile"
    std::string arguments;  // "file#1, 02 00 03, event#2"
    std::thread::id thread;

    std::string Text() const { return function + "(" + arguments + ")"; }
};

// The failure that a call returns instead of doing its work.
struct Fault {
    // The thread's last error afterwards; HidP calls leave it unchanged when 0.
    std::uint32_t error = 0;
    // The value returned; if absent, the function's ordinary failure value (FALSE, NULL,
    // INVALID_HANDLE_VALUE, 0 characters, WAIT_FAILED, HIDP_STATUS_INTERNAL_ERROR).
    std::optional<std::int64_t> result;

    static Fault Error(std::uint32_t error) { return {error, std::nullopt}; }
    static Fault Result(std::int64_t result, std::uint32_t error = 0) { return {error, result}; }
    // For HidP calls: an NTSTATUS such as HIDP_STATUS_USAGE_NOT_FOUND.
    static Fault Status(std::int32_t status) { return {0, status}; }
};

}  // namespace simulator
