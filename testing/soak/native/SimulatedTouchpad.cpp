#include <atomic>
#include <mutex>

#include "testing/fuzz/FuzzDevice.h"
#include "testing/simulator/Machine.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {
namespace {

using simulator::WriteBehaviour;
using virtual_touchpad::kLightReportId;
using virtual_touchpad::kRequestReportId;

class SimulatedTouchpad : public SoakTouchpad {
 public:
    explicit SimulatedTouchpad(const TouchpadLayout& layout) {
        simulator::Machine& machine = kit::EmptyMachine();
        // The haptic touchpad stays the first: a device plugged in again is enumerated last.
        hapticTouchpad_ = machine.Plug(kit::Describe(virtual_touchpad::HapticLayout{}));
        device_ = machine.Plug(kit::Describe(layout));
    }

    void Unplug() override {
        ++unplugged_;
        device_->Unplug();
    }
    void PlugIn() override { device_->PlugIn(); }
    unsigned Unplugged() const override { return unplugged_; }

    void Send(std::uint8_t buttons, std::uint8_t firmwareState) override {
        device_->SendInput({virtual_touchpad::kButtonReportId, buttons, firmwareState});
    }
    // A read stays pending only while no report is queued.
    void WaitUntilRead() override { device_->WaitForPendingReads(); }

    void HoldWrites(bool hold) override {
        device_->SetWriteBehaviour(hold ? WriteBehaviour::Hold : WriteBehaviour::Pend);
        if (!hold) device_->CompleteHeldWrites();
    }
    void ForgetWritten() override {
        device_->ForgetOutputs();
        device_->ForgetFeatureWrites();
        hapticTouchpad_->ForgetFeatureWrites();
    }
    std::optional<Bytes> LightsBeforeRequest(const Bytes& known) override {
        std::optional<Bytes> lights;
        for (std::size_t next = 0; device_->WaitForOutputs(next + 1); ++next) {
            const Bytes report = device_->Outputs()[next];
            if (report[0] == kLightReportId && (lights || BeginsWith(report, known))) {
                lights = report;
            }
            if (report[0] == kRequestReportId && lights) return lights;
        }
        return std::nullopt;
    }
    // A write ends within its call or with its handle, so none is pending after the closing.
    std::optional<Bytes> LightsAfterClosing() override { return fuzz::LastLights(*device_); }

 private:
    std::shared_ptr<simulator::Device> device_;
    std::shared_ptr<simulator::Device> hapticTouchpad_;
    std::atomic<unsigned> unplugged_{0};
};

}  // namespace

std::unique_ptr<SoakTouchpad> SoakTouchpad::Make(const TouchpadLayout& layout) {
    return std::make_unique<SimulatedTouchpad>(layout);
}

}  // namespace soak
