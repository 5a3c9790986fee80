#include "testing/virtual-touchpad/control/VirtualDevice.h"

#include <windows.h>
#include <winioctl.h>

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace virtual_touchpad {
namespace {

using Clock = std::chrono::steady_clock;

// The client polls, as a pending request would keep the link's handle open across an unplug.
constexpr std::chrono::milliseconds kPollInterval{2};

// In the order of VirtualHidRequestKind.
constexpr const char* kRequestNames[VIRTUAL_HID_REQUEST_KINDS] = {
    "descriptor", "attributes", "string", "read", "output", "get feature", "set feature", "other"};

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
    return narrow;
}

// The compiler's steady clock counts the performance counter's time from the same zero.
Clock::time_point TimeOf(std::uint64_t counter) {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    const auto ticks = static_cast<std::uint64_t>(frequency.QuadPart);
    const std::chrono::nanoseconds part(1'000'000'000 * (counter % ticks) / ticks);
    return Clock::time_point(std::chrono::seconds(counter / ticks) + part);
}

template <typename Condition>
bool Poll(std::chrono::milliseconds timeout, Condition condition) {
    const auto end = Clock::now() + timeout;
    while (!condition()) {
        if (Clock::now() >= end) return false;
        std::this_thread::sleep_for(kPollInterval);
    }
    return true;
}

}  // namespace

VirtualDevice::VirtualDevice(const std::wstring& name)
    : link_(VIRTUAL_HID_LINK_PREFIX + name),
      handle_(CreateFileW((L"\\\\.\\" + link_).c_str(), GENERIC_READ | GENERIC_WRITE,
                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("cannot open the control link " + Narrow(link_) + ": error " +
                                 std::to_string(GetLastError()) + " (is the device plugged in?)");
    }
}

VirtualDevice::~VirtualDevice() { CloseHandle(handle_); }

std::size_t VirtualDevice::Control(unsigned long code, const void* input, std::size_t inputSize,
                                   void* output, std::size_t outputSize) const {
    DWORD returned = 0;
    if (!DeviceIoControl(handle_, code, const_cast<void*>(input), static_cast<DWORD>(inputSize),
                         output, static_cast<DWORD>(outputSize), &returned, nullptr)) {
        const DWORD error = GetLastError();
        if (code == IOCTL_VIRTUAL_HID_GET_FEATURE && error == ERROR_NOT_FOUND) return 0;
        throw std::runtime_error("request " + std::to_string((code >> 2) & 0x7FF) +
                                 " on the control link " + Narrow(link_) + " failed: error " +
                                 std::to_string(error));
    }
    return returned;
}

VirtualHidState VirtualDevice::State() const {
    VirtualHidState state{};
    Control(IOCTL_VIRTUAL_HID_GET_STATE, nullptr, 0, &state, sizeof(state));
    return state;
}

Requests VirtualDevice::RequestsSince(const Requests& earlier) const {
    const VirtualHidState state = State();
    Requests requests;
    for (std::size_t kind = 0; kind < VIRTUAL_HID_REQUEST_KINDS; ++kind) {
        const char* const name = kRequestNames[kind];
        const auto before = earlier.find(name);
        const std::uint32_t added =
            state.requests[kind] - (before == earlier.end() ? 0 : before->second);
        if (added != 0) requests[name] = added;
    }
    return requests;
}

void VirtualDevice::SendInput(const Report& report) {
    Control(IOCTL_VIRTUAL_HID_SEND_INPUT, report.data(), report.size(), nullptr, 0);
}

std::vector<OutputReport> VirtualDevice::OutputReports(std::uint64_t since) const {
    std::vector<VirtualHidOutput> outputs(VIRTUAL_HID_OUTPUT_HISTORY);
    const std::size_t size = Control(IOCTL_VIRTUAL_HID_GET_OUTPUTS, &since, sizeof(since),
                                     outputs.data(), outputs.size() * sizeof(VirtualHidOutput));
    outputs.resize(size / sizeof(VirtualHidOutput));
    std::vector<OutputReport> reports;
    reports.reserve(outputs.size());
    for (const VirtualHidOutput& output : outputs) {
        reports.push_back({output.sequence, TimeOf(output.counter),
                           Report(output.bytes, output.bytes + output.length)});
    }
    return reports;
}

std::optional<OutputReport> VirtualDevice::WaitForOutput(
    const std::function<bool(const OutputReport&)>& wanted, std::chrono::milliseconds timeout,
    std::uint64_t since) const {
    std::optional<OutputReport> found;
    Poll(timeout, [&] {
        for (OutputReport& report : OutputReports(since)) {
            since = report.sequence;
            if (!wanted(report)) continue;
            found = std::move(report);
            return true;
        }
        return false;
    });
    return found;
}

std::vector<OutputReport> VirtualDevice::WaitForOutputs(std::size_t count,
                                                        std::chrono::milliseconds timeout,
                                                        std::uint64_t since) const {
    Poll(timeout, [&] { return LastSequence() >= since + count; });
    return OutputReports(since);
}

std::optional<Report> VirtualDevice::Feature(std::uint8_t reportId) const {
    Report report(VIRTUAL_HID_MAX_REPORT);
    report.resize(Control(IOCTL_VIRTUAL_HID_GET_FEATURE, &reportId, sizeof(reportId), report.data(),
                          report.size()));
    if (report.empty()) return std::nullopt;
    return report;
}

void VirtualDevice::SetFeature(const Report& report) {
    Control(IOCTL_VIRTUAL_HID_SET_FEATURE, report.data(), report.size(), nullptr, 0);
}

void VirtualDevice::HoldWrites(bool hold) {
    const std::uint32_t value = hold ? 1 : 0;
    Control(IOCTL_VIRTUAL_HID_HOLD_WRITES, &value, sizeof(value), nullptr, 0);
}

void VirtualDevice::FailNextWrite(std::int32_t ntstatus) {
    Control(IOCTL_VIRTUAL_HID_FAIL_NEXT_WRITE, &ntstatus, sizeof(ntstatus), nullptr, 0);
}

void VirtualDevice::FailNextFeature(std::int32_t ntstatus) {
    Control(IOCTL_VIRTUAL_HID_FAIL_NEXT_FEATURE, &ntstatus, sizeof(ntstatus), nullptr, 0);
}

void VirtualDevice::LimitOpens(std::uint32_t allowed) {
    Control(IOCTL_VIRTUAL_HID_LIMIT_OPENS, &allowed, sizeof(allowed), nullptr, 0);
}

bool VirtualDevice::WaitForState(const std::function<bool(const VirtualHidState&)>& wanted,
                                 std::chrono::milliseconds timeout) const {
    return Poll(timeout, [&] { return wanted(State()); });
}

}  // namespace virtual_touchpad
