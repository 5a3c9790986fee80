#include "testing/bench/windows/Arrivals.h"

#include <atomic>
#include <future>
#include <optional>
#include <stdexcept>

#include "testing/bench/Stopwatch.h"
#include "testing/kit/WaitUntil.h"
#include "testing/kit/windows/FirstArrival.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace bench {
namespace {

using virtual_touchpad::DecodeLights;
using virtual_touchpad::IsLightReport;
using virtual_touchpad::OutputReport;
using virtual_touchpad::TouchpadLayout;
using virtual_touchpad::VirtualDevice;

bool IsLit(const OutputReport& report) {
    return IsLightReport(report) && kit::AllFourLit(DecodeLights(report.bytes, TouchpadLayout{}));
}
bool IsDark(const OutputReport& report) {
    return IsLightReport(report) && kit::AllDark(DecodeLights(report.bytes, TouchpadLayout{}));
}

// Returns the number of the first such report after this one.
template <typename Wanted>
std::uint64_t WaitForReport(const VirtualDevice& device, Wanted wanted, std::uint64_t since) {
    const auto report = device.WaitForOutput(wanted, kit::kPatience, since);
    if (!report) throw std::runtime_error("the touchpad does not show what it should");
    return report->sequence;
}

void LightAll(vela_agent::Settings& settings) {
    settings.activation = VELA_ACTIVE;
    settings.feature = true;
    for (vela_agent::ButtonSettings& button : settings.buttons) button = {true, true, false};
}

void LightAll(vela_agent::Session& session) {
    session.Activate(VELA_ACTIVE);
    session.EnableFeature(true);
    for (std::uint32_t i = 0; i < 4; ++i) {
        session.EnableButton(static_cast<VelaButton>(i), true);
        session.SetVisible(static_cast<VelaButton>(i), true);
    }
}

// Plugs in a touchpad on a thread of its own, as plugging in returns only after a while.
class Arrival {
 public:
    Arrival()
        : plugged_(
              std::async(std::launch::async, [] { virtual_touchpad::Plug(TouchpadLayout{}); })) {}
    // Unplugs it.
    void End() {
        plugged_.get();
        virtual_touchpad::Unplug();
    }
    double Start() const { return start_; }

 private:
    const double start_ = Nanoseconds();
    std::future<void> plugged_;
};

// The control link comes with the device.
void WaitForDevice(std::optional<VirtualDevice>& device) {
    const bool isThere = kit::WaitUntil([&] {
        try {
            device.emplace();
            return true;
        } catch (const std::runtime_error&) {
            return false;
        }
    });
    if (!isThere) throw std::runtime_error("the touchpad does not arrive");
}

// Calls `onArrival` on the notification of the touchpad that is plugged in, and measures until it
// has returned.
template <typename OnArrival>
double MeasureArrival(OnArrival onArrival) {
    std::promise<double> handled;
    bool isHandled = false;
    const auto handle = [&](const std::wstring& path) {
        if (std::exchange(isHandled, true)) return;
        onArrival(path);
        handled.set_value(Nanoseconds());
    };
    const vela_agent::detail::DeviceEvents events{handle, [](const std::wstring&) {}, [] {}};
    const vela_agent::detail::WindowNotifications window(events);
    Arrival arrival;
    const double end = handled.get_future().get();
    arrival.End();
    return end - arrival.Start();
}

}  // namespace

void WaitUntilNotified() {
    std::atomic<bool> isNotified{false};
    const vela_agent::detail::DeviceEvents events{[&](const std::wstring&) { isNotified = true; },
                                                  [](const std::wstring&) {}, [] {}};
    const vela_agent::detail::WindowNotifications window(events);
    if (!kit::PlugUntilNoticed([] { virtual_touchpad::Plug(TouchpadLayout{}); },
                               virtual_touchpad::UnplugAll, [&] { return isNotified.load(); })) {
        throw std::runtime_error("the system does not notify of devices");
    }
    virtual_touchpad::UnplugAll();
}

double ArrivalUntilLit(const vela_agent::Library& library) {
    vela_agent::Watch watch(library);
    watch.Change([](vela_agent::Settings& settings) { LightAll(settings); });
    Arrival arrival;
    std::optional<VirtualDevice> device;
    WaitForDevice(device);
    WaitForReport(*device, IsLit, 0);
    const double end = Nanoseconds();
    device.reset();
    arrival.End();
    return end - arrival.Start();
}

double ArrivalUntilNotified() {
    return MeasureArrival([](const std::wstring&) {});
}

double ArrivalUntilOpened() {
    HANDLE device = INVALID_HANDLE_VALUE;
    const double time = MeasureArrival([&](const std::wstring& path) {
        kit::WaitUntil([&] {
            device = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
            return device != INVALID_HANDLE_VALUE;
        });
    });
    if (device == INVALID_HANDLE_VALUE) throw std::runtime_error("the touchpad does not open");
    CloseHandle(device);
    return time;
}

double ResumeUntilLit(const vela_agent::Library& library) {
    vela_agent::Watch watch(library);
    watch.Change([](vela_agent::Settings& settings) { LightAll(settings); });
    const VirtualDevice device;
    const std::uint64_t before = device.LastSequence();
    const std::uint64_t lit = WaitForReport(device, IsLit, before);
    const HWND window = FindWindowExW(HWND_MESSAGE, nullptr, L"VelaAgentWatch", nullptr);
    const double start = Nanoseconds();
    PostMessageW(window, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    WaitForReport(device, IsLit, WaitForReport(device, IsDark, lit));
    return Nanoseconds() - start;
}

double ReopeningUntilLit(const vela_agent::Library& library) {
    const VirtualDevice device;
    const std::uint64_t before = device.LastSequence();
    std::optional<vela_agent::Session> session(library);
    LightAll(*session);
    const std::uint64_t lit = WaitForReport(device, IsLit, before);
    const double start = Nanoseconds();
    session.reset();
    session.emplace(library);
    LightAll(*session);
    WaitForReport(device, IsLit, WaitForReport(device, IsDark, lit));
    return Nanoseconds() - start;
}

}  // namespace bench
