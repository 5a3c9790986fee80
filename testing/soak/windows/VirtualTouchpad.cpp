#include <windows.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <stdexcept>

#include "testing/soak/SoakTouchpad.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace soak {
namespace {

using virtual_touchpad::VirtualDevice;

constexpr std::chrono::seconds kPatience{10};

class VirtualTouchpad : public SoakTouchpad {
 public:
    explicit VirtualTouchpad(const TouchpadLayout& layout) : layout_(layout) {
        virtual_touchpad::UnplugAll();
        virtual_touchpad::Plug(virtual_touchpad::SettingsOf(virtual_touchpad::HapticLayout{}),
                               L"haptic");
        VirtualTouchpad::PlugIn();
    }
    ~VirtualTouchpad() override {
        device_.reset();
        virtual_touchpad::UnplugAll();
    }

    void Unplug() override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ == nullptr) return;
        ++unplugged_;
        device_.reset();
        virtual_touchpad::Unplug();
    }
    void PlugIn() override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ != nullptr) return;
        virtual_touchpad::Plug(layout_);
        device_ = std::make_unique<VirtualDevice>();
        forgotten_ = 0;
    }
    unsigned Unplugged() const override { return unplugged_; }

    void Send(std::uint8_t buttons, std::uint8_t firmwareState) override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ == nullptr) return;
        device_->SendInput({virtual_touchpad::kButtonReportId, buttons, firmwareState});
    }
    void WaitUntilRead() override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ == nullptr) return;
        device_->WaitForState([](const VirtualHidState& state) { return state.queuedInputs == 0; },
                              kPatience);
        // Reports that the class driver has fetched are in its own queue, which cannot be queried:
        // some dozens, which the session reads in this time even on a busy machine.
        Sleep(1000);
    }

    void HoldWrites(bool hold) override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ != nullptr) device_->HoldWrites(hold);
    }
    void ForgetWritten() override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ != nullptr) forgotten_ = device_->LastSequence();
    }
    std::optional<Bytes> LightsBeforeRequest(const Bytes& known) override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ == nullptr) return std::nullopt;
        const auto knownLights = device_->WaitForOutput(
            [&known](const virtual_touchpad::OutputReport& report) {
                return BeginsWith(report.bytes, known);
            },
            kPatience, forgotten_);
        if (!knownLights) return std::nullopt;
        const auto request = device_->WaitForOutput(virtual_touchpad::IsStateRequest, kPatience,
                                                    knownLights->sequence);
        if (!request) return std::nullopt;
        Bytes lights = knownLights->bytes;
        for (const auto& report : device_->OutputReports(knownLights->sequence)) {
            if (report.sequence > request->sequence) break;
            if (virtual_touchpad::IsLightReport(report)) lights = report.bytes;
        }
        return lights;
    }
    std::optional<Bytes> LightsAfterClosing() override {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (device_ == nullptr) return std::nullopt;
        device_->WaitForState(
            [](const VirtualHidState& state) {
                return state.readWriteOpens == 0 && state.heldWrites == 0;
            },
            kPatience);
        const auto reports = device_->OutputReports(forgotten_);
        const auto last =
            std::find_if(reports.rbegin(), reports.rend(), virtual_touchpad::IsLightReport);
        if (last == reports.rend()) return std::nullopt;
        return last->bytes;
    }

 private:
    const TouchpadLayout layout_;
    mutable std::mutex mutex_;               // guards: device_, forgotten_
    std::unique_ptr<VirtualDevice> device_;  // null while unplugged
    std::uint64_t forgotten_ = 0;
    std::atomic<unsigned> unplugged_{0};
};

}  // namespace

std::unique_ptr<SoakTouchpad> SoakTouchpad::Make(const TouchpadLayout& layout) {
    return std::make_unique<VirtualTouchpad>(layout);
}

}  // namespace soak
