// The fixture of the haptic tests: a simulated machine with a haptic touchpad and a session.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "haptic/HapticTouchpadHID.h"
#include "hid/HIDDiscovery.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/simulator/Machine.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"

namespace kit {

using simulator::Fault;
using virtual_touchpad::HapticFields;
using virtual_touchpad::HapticLayout;
using virtual_touchpad::HapticsReport;

class HapticTest : public testing::Test {
 protected:
    HapticTest() { machine_.Reset(); }

    void Plug(const HapticLayout& layout = {}) {
        simulator::DeviceDescription description;
        description.reportDescriptor = virtual_touchpad::BuildReportDescriptor(layout);
        description.vendorId = layout.vendorId;
        description.productId = layout.productId;
        description.versionNumber = layout.versionNumber;
        description.productString = layout.productString;
        device_ = machine_.Plug(description);
        device_->SetFeature(HapticsReport(kFields));
    }

    std::uint32_t OpenSession() { return session_.Initialize(vela::ScanHIDInformation(&session_)); }
    void Open() {
        Plug();
        ASSERT_EQ(OpenSession(), vela::kHidOpen);
        machine_.ForgetCalls();
    }

    // The device's first values. The neighbours of the intensity use every bit.
    static constexpr HapticFields kFields{0xA, 42, 0x15, 0xC3};

    simulator::Machine& machine_ = simulator::Machine::Get();
    AgentLog log_;
    std::shared_ptr<simulator::Device> device_;
    vela::CHapticTouchpadHID session_;
};

}  // namespace kit
