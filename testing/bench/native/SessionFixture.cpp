#include "testing/bench/native/SessionFixture.h"

#include <stdexcept>

#include "hid/HIDDiscovery.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace bench {

simulator::DeviceDescription Touchpad() {
    const virtual_touchpad::TouchpadLayout layout;
    simulator::DeviceDescription description;
    description.reportDescriptor = virtual_touchpad::BuildReportDescriptor(layout);
    description.vendorId = layout.vendorId;
    description.productId = layout.productId;
    description.versionNumber = layout.versionNumber;
    description.productString = layout.productString;
    return description;
}

simulator::DeviceDescription OtherDevice() {
    virtual_touchpad::TouchpadLayout layout;
    layout.usage = 0x0081;
    simulator::DeviceDescription description = Touchpad();
    description.reportDescriptor = virtual_touchpad::BuildReportDescriptor(layout);
    return description;
}

simulator::Machine& EmptyMachine() {
    simulator::Machine& machine = simulator::Machine::Get();
    machine.Reset();
    machine.RecordCalls(false);
    return machine;
}

SessionFixture::SessionFixture() : device_(EmptyMachine().Plug(Touchpad())) {
    if (session_.Initialize(vela::ScanHIDInformation(&session_)) != vela::kHidOpen) {
        throw std::runtime_error("the session does not open");
    }
    session_.Enable(true);
    session_.Activate(vela::kActive);
    for (std::uint32_t button = 0; button < vela::kMeetingButtonCount; ++button) {
        session_.EnableButton(button, true);
        session_.SetButtonVisible(button, true);
    }
    Settle();
}

SessionFixture::~SessionFixture() { session_.Uninitialize(); }

void SessionFixture::Settle() {
    // Reports are written in the order of their queue. The state request is always written, and no
    // other report is queued after it.
    constexpr std::uint8_t kRequest = virtual_touchpad::kRequestReportId;
    session_.UpdateVelaState();
    std::size_t count = 1;
    do {
        if (!device_->WaitForOutputs(count)) throw std::runtime_error("a report was not written");
        count = device_->Outputs().size() + 1;
    } while (device_->Outputs().back()[0] != kRequest);
    device_->ForgetOutputs();
}

}  // namespace bench
