// The fixture of most tests: a simulated machine with one touchpad, a session and a host.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hid/HIDDiscovery.h"
#include "testing/kit/HostCallbacks.h"
#include "testing/kit/Reports.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/kit/native/Layouts.h"
#include "testing/simulator/Machine.h"
#include "touchpad/TandrelHID.h"

namespace kit {

using simulator::Fault;
using simulator::Machine;

class TouchpadTest : public testing::Test {
 protected:
    TouchpadTest();
    // Uses a session that the caller owns.
    explicit TouchpadTest(vela::CTandrelHID& session);
    ~TouchpadTest() override;

    // Plugs the touchpad in and opens a session on it with both callbacks registered.
    void Open(const TouchpadLayout& layout = {});
    void Plug(const TouchpadLayout& layout = {});
    std::uint32_t OpenSession();

    // Opens, enables the feature, activates, and enables and shows all four buttons; waits until
    // the device has the resulting report, then forgets outputs, calls and callbacks.
    void OpenAndLight(const TouchpadLayout& layout = {}, std::uint32_t activation = 0);
    // Waits until all reports queued so far have been written: queues a state request, waits for
    // it, then forgets what the device got.
    void Settle();

    // Returns report number `count` since Open or Settle, counted from 1; empty when it never came.
    Bytes OutputNumber(std::size_t count);

    // Returns the texts of the function's log lines so far. Stops the logger.
    std::vector<std::string> LogOf(const std::string& function) { return log_.TextsOf(function); }

    Machine& machine_ = Machine::Get();
    AgentLog log_;
    std::shared_ptr<simulator::Device> device_;
    // The session is never destroyed: with a detachable touchpad the heartbeat's thread object
    // stays joinable, and destroying it would end the process.
    vela::CTandrelHID& session_;
};

}  // namespace kit
