// The stage of most tests: a simulated machine with one touchpad, a session and a host.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hid/HIDDiscovery.h"
#include "testing/kit/AgentLog.h"
#include "testing/kit/HostCallbacks.h"
#include "testing/simulator/Machine.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"
#include "touchpad/TandrelHID.h"

namespace test_support {

using simulator::Bytes;
using simulator::Fault;
using simulator::Machine;
using virtual_touchpad::TouchpadLayout;

simulator::DeviceDescription Describe(const TouchpadLayout& layout);

// A touchpad layout whose product string says that it can be taken off.
TouchpadLayout DetachableLayout();

// An input report of the layout's first input report id: the pressed usages (0x40 to 0x47) and the
// firmware state.
Bytes InputReport(const std::vector<std::uint16_t>& usages, std::uint8_t firmwareState = 0,
                  std::uint8_t reportId = virtual_touchpad::kButtonReportId);

// A light report: `lights` gives the bytes in the order of kLightUsages (0x20, 0x21, 0x22, 0x24,
// 0x26, 0x27, 0xA2), `active` the bits of the active usages 0x01 (lowest) to 0x04.
Bytes LightReport(const std::vector<std::uint8_t>& lights, std::uint8_t active);
// All dark.
Bytes BlankReport();
// The request report.
Bytes RequestReport(std::uint8_t reportId = virtual_touchpad::kRequestReportId);

class TouchpadTest : public testing::Test {
 protected:
    TouchpadTest();
    // On a session that lives elsewhere.
    explicit TouchpadTest(vela::CTandrelHID& session);
    ~TouchpadTest() override;

    // Plugs the touchpad in and opens a session on it with both callbacks registered.
    void Open(const TouchpadLayout& layout = {});
    void Plug(const TouchpadLayout& layout = {});
    std::uint32_t OpenSession();

    // Open, feature enabled, activated, all four buttons enabled and visible; waits until the
    // device has the resulting report, then forgets outputs, calls and callbacks.
    void OpenAndLight(const TouchpadLayout& layout = {}, std::uint32_t activation = 0);
    // Waits until all reports queued so far have been written: queues a forced report of its own
    // and waits for it, then forgets what the device got.
    void Settle();

    // The report that the device received as number `count` since Open or Settle; empty when none
    // came.
    Bytes OutputNumber(std::size_t count);

    // Parsed log so far; stops the logger.
    std::vector<std::string> LogOf(const std::string& function) { return log_.TextsOf(function); }

    Machine& machine_ = Machine::Get();
    AgentLog log_;
    std::shared_ptr<simulator::Device> device_;
    // Never destroyed: with a detachable touchpad the heartbeat's thread object stays joinable, and
    // its destruction would end the process.
    vela::CTandrelHID& session_;
};

}  // namespace test_support
