// A client of a virtual device's control link, through which a test drives the device and observes
// its hosts. Every function throws std::runtime_error when the device is missing or fails the
// request. One object may be used from several threads.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/control/ControlProtocol.h"

namespace virtual_touchpad {

using Report = std::vector<std::uint8_t>;  // the report id first

struct OutputReport {
    std::uint64_t sequence = 0;  // 1 for the first that the device received
    std::chrono::steady_clock::time_point received;
    Report bytes;
};

// How many requests of each kind, by the kind's name: "descriptor", "attributes", "string", "read",
// "output", "get feature", "set feature", "other". Kinds without a request are left out.
using Requests = std::map<std::string, std::uint32_t>;

class VirtualDevice {
 public:
    // `name` is the one that the device was plugged in with.
    explicit VirtualDevice(const std::wstring& name = L"touchpad");
    ~VirtualDevice();
    VirtualDevice(const VirtualDevice&) = delete;
    VirtualDevice& operator=(const VirtualDevice&) = delete;

    VirtualHidState State() const;

    // Returns the requests that have reached the device since it was plugged in and are not in
    // `earlier`. What the class driver answers from its own copy does not reach it.
    Requests RequestsSince(const Requests& earlier) const;

    void SendInput(const Report& report);

    // Output reports with a higher sequence number, oldest first. The device remembers the last 64.
    std::vector<OutputReport> OutputReports(std::uint64_t since = 0) const;
    std::uint64_t LastSequence() const { return State().outputCount; }
    // Returns the first report after `since` that satisfies `wanted`; none after the timeout.
    std::optional<OutputReport> WaitForOutput(
        const std::function<bool(const OutputReport&)>& wanted, std::chrono::milliseconds timeout,
        std::uint64_t since = 0) const;
    // Returns the reports after `since` once there are `count`; fewer after the timeout.
    std::vector<OutputReport> WaitForOutputs(std::size_t count, std::chrono::milliseconds timeout,
                                             std::uint64_t since = 0) const;

    // Returns the stored report; none when it was never set.
    std::optional<Report> Feature(std::uint8_t reportId) const;
    void SetFeature(const Report& report);

    // While held, hosts' writes stay pending; releasing continues them in order.
    void HoldWrites(bool hold);
    // The next write, or feature request, of a host fails with this NTSTATUS.
    void FailNextWrite(std::int32_t ntstatus);
    void FailNextFeature(std::int32_t ntstatus);

    // After `allowed` more opens every open fails with a sharing violation, whatever its access, as
    // if a driver kept the device for itself. Without an argument the limit ends.
    void LimitOpens(std::uint32_t allowed = VIRTUAL_HID_UNLIMITED_OPENS);

    // Handles that hosts have open now with read or write access.
    std::uint32_t Opens() const { return State().readWriteOpens; }

    // Polls every few milliseconds until `wanted` holds; returns false after the timeout.
    bool WaitForState(const std::function<bool(const VirtualHidState&)>& wanted,
                      std::chrono::milliseconds timeout) const;

 private:
    std::size_t Control(unsigned long code, const void* input, std::size_t inputSize, void* output,
                        std::size_t outputSize) const;

    std::wstring link_;
    void* handle_;
};

}  // namespace virtual_touchpad
