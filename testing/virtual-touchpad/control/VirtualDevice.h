// A client of a virtual device's control link: what a test does to the device and what it learns of
// the hosts. Every function throws std::runtime_error when the device is not there (any more) or
// refuses. One object may be used from several threads.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/control/ControlProtocol.h"

namespace virtual_touchpad {

using Report = std::vector<std::uint8_t>;  // the report id first

struct OutputReport {
    std::uint64_t sequence = 0;  // 1 for the first that the device received
    Report bytes;
};

class VirtualDevice {
 public:
    // The name it was plugged in with.
    explicit VirtualDevice(const std::wstring& name = L"touchpad");
    ~VirtualDevice();
    VirtualDevice(const VirtualDevice&) = delete;
    VirtualDevice& operator=(const VirtualDevice&) = delete;

    VirtualHidState State() const;

    void SendInput(const Report& report);

    // Output reports with a higher sequence number, oldest first. The device remembers the last 64.
    std::vector<OutputReport> OutputReports(std::uint64_t since = 0) const;
    std::uint64_t LastSequence() const { return State().outputCount; }
    // The first report after `since` that satisfies `wanted`; none after the timeout.
    std::optional<OutputReport> WaitForOutput(
        const std::function<bool(const OutputReport&)>& wanted, std::chrono::milliseconds timeout,
        std::uint64_t since = 0) const;
    // The reports after `since`, once there are `count`; fewer after the timeout.
    std::vector<OutputReport> WaitForOutputs(std::size_t count, std::chrono::milliseconds timeout,
                                             std::uint64_t since = 0) const;

    // The stored report; none when it was never set.
    std::optional<Report> Feature(std::uint8_t reportId) const;
    void SetFeature(const Report& report);

    // While held, hosts' writes stay pending; releasing lets them go on, in order.
    void HoldWrites(bool hold);
    // The next write, or feature request, of a host fails with this NTSTATUS.
    void FailNextWrite(std::int32_t ntstatus);
    void FailNextFeature(std::int32_t ntstatus);

    // After `allowed` more opens every open fails with a sharing violation, whatever its access, as
    // when a driver keeps the device to itself. Without a number none fails any more.
    void LimitOpens(std::uint32_t allowed = VIRTUAL_HID_UNLIMITED_OPENS);

    // Handles that hosts have open now with read or write access.
    std::uint32_t Opens() const { return State().readWriteOpens; }

    // Asks again every few milliseconds until it holds; false after the timeout.
    bool WaitForState(const std::function<bool(const VirtualHidState&)>& wanted,
                      std::chrono::milliseconds timeout) const;

 private:
    std::size_t Control(unsigned long code, const void* input, std::size_t inputSize, void* output,
                        std::size_t outputSize) const;

    std::wstring link_;
    void* handle_;
};

}  // namespace virtual_touchpad
