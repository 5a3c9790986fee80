#include "tools/velapanel/DeviceWatch.h"

#include <stdexcept>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/plug/Plug.h"
#include "tools/velapanel/ReportFields.h"

namespace velapanel {

using virtual_touchpad::kClickModeReportId;
using virtual_touchpad::kHapticsReportId;
using virtual_touchpad::Report;

namespace {

constexpr std::size_t kRememberedReports = 32;

Report InputReport(std::uint16_t eventUsage) {
    constexpr std::uint16_t kFirstEvent = 0x40;
    return {virtual_touchpad::kButtonReportId,
            static_cast<std::uint8_t>(1U << (eventUsage - kFirstEvent)), 0};
}

// A device and the counts of its reports that were already read.
template <typename Control>
struct Watched {
    explicit Watched(const std::wstring& name) : control(name) {}
    Control control;
    std::uint32_t featureSets = 0;
    std::uint64_t outputs = 0;
};

// Opens the device when it appears and closes it when it is gone.
template <typename Device, typename Look>
bool QueryDevice(std::unique_ptr<Device>& device, const std::wstring& name, const Look& look) {
    try {
        if (device == nullptr) device = std::make_unique<Device>(name);
        look(*device);
        return true;
    } catch (const std::runtime_error&) {
        device.reset();
        return false;
    }
}

}  // namespace

struct DeviceWatch::Touchpad : Watched<virtual_touchpad::TouchpadControl> {
    using Watched::Watched;
};
struct DeviceWatch::Haptic : Watched<virtual_touchpad::VirtualDevice> {
    using Watched::Watched;
};

DeviceWatch::DeviceWatch(std::wstring touchpadName, std::wstring hapticName)
    : touchpadName_(std::move(touchpadName)), hapticName_(std::move(hapticName)) {}

DeviceWatch::~DeviceWatch() = default;

void DeviceWatch::Refresh() {
    RefreshTouchpad();
    RefreshHaptic();
}

void DeviceWatch::RefreshTouchpad() {
    state_.isPlugged = QueryDevice(touchpad_, touchpadName_, [this](Touchpad& touchpad) {
        const virtual_touchpad::VirtualDevice& device = touchpad.control.Device();
        const VirtualHidState now = device.State();
        if (now.outputCount != touchpad.outputs) {
            for (const auto& output : device.OutputReports(touchpad.outputs)) {
                touchpad.outputs = output.sequence;
                Add(DescribeOutput(output.bytes));
            }
            state_.lights = touchpad.control.CurrentLights();
        }
        if (now.featureSetCount != touchpad.featureSets) {
            touchpad.featureSets = now.featureSetCount;
            if (const auto report = device.Feature(kClickModeReportId)) {
                Add(DescribeFeature(*report));
            }
        }
    });
    if (!state_.isPlugged) state_.lights = {};
}

void DeviceWatch::RefreshHaptic() {
    const bool isThere = QueryDevice(haptic_, hapticName_, [this](Haptic& haptic) {
        const auto report = haptic.control.Feature(kHapticsReportId);
        state_.hapticLevel = report ? HapticLevel(*report) : 0;
        const std::uint32_t sets = haptic.control.State().featureSetCount;
        if (report && sets != haptic.featureSets) Add(DescribeFeature(*report));
        haptic.featureSets = sets;
    });
    if (!isThere) state_.hapticLevel.reset();
}

void DeviceWatch::Do(Action action) {
    const ActionInfo& info = kActions[static_cast<std::size_t>(action)];
    if (action == Action::Plug) {
        if (state_.isPlugged) {
            touchpad_.reset();
            virtual_touchpad::Unplug(touchpadName_);
        } else {
            virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{}, touchpadName_);
        }
    } else {
        if (touchpad_ == nullptr) throw std::runtime_error("the touchpad is not plugged in");
        const Report report = InputReport(info.eventUsage);
        touchpad_->control.Device().SendInput(report);
        Add(DescribeInput(report));
    }
    Refresh();
}

void DeviceWatch::Add(ReportLine line) {
    state_.reports.insert(state_.reports.begin(), std::move(line));
    if (state_.reports.size() > kRememberedReports) state_.reports.pop_back();
}

}  // namespace velapanel
