// The fixture of the watch's tests: a simulated machine where the library can be loaded, and a host
// that records what it is notified of.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "include/VelaAgentWatch.hpp"
#include "testing/kit/Reports.h"
#include "testing/kit/WaitUntil.h"
#include "testing/kit/native/Layouts.h"
#include "testing/simulator/Machine.h"

namespace watch_tests {

using kit::Bytes;
using simulator::Fault;
using simulator::Machine;
using vela_agent::Settings;
using vela_agent::Watch;
using vela_agent::WatchHandlers;

class WatchTest : public testing::Test {
 protected:
    WatchTest();

    std::shared_ptr<simulator::Device> Plug(const kit::TouchpadLayout& layout = {});
    // Creates the watch, with handlers that record.
    Watch& Start();
    void Stop() { watch_.reset(); }

    // Sets all buttons enabled and visible, active and with the feature on.
    static void LightAll(Settings& settings);
    // Returns the last light report that the device received; empty when there was none.
    static Bytes LastLights(const simulator::Device& device);
    // Returns whether the device's last light report becomes this one.
    static bool WaitForLights(const simulator::Device& device, const Bytes& report);
    // Returns whether the notifications become "found", "lost", "held", "press 0 1", "status 3",
    // ...
    bool WaitForEvents(const std::vector<std::string>& events);
    // Returns whether one of them becomes this one.
    bool WaitForEvent(const std::string& event);
    std::vector<std::string> Events() const;
    bool IsOpen() const { return watch_->IsOpen(); }
    // Returns how often the machine's HID interfaces were listed.
    std::size_t Scans() const { return machine_.CountCalls("SetupDiGetClassDevsW"); }

    Machine& machine_ = Machine::Get();

 private:
    void Record(const std::string& event);

    mutable std::mutex mutex_;  // guards: events_
    std::vector<std::string> events_;
    std::optional<Watch> watch_;
};

}  // namespace watch_tests
