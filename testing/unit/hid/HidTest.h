// The fixture of discovery's tests: a simulated machine, a log, and a query with its wanted pages.
// It checks that every handle is closed and all memory is freed after each test.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hid/HIDDiscovery.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/kit/native/ScriptedQuery.h"
#include "testing/kit/native/TouchpadTest.h"
#include "testing/simulator/Machine.h"

namespace hid_test {

using kit::AgentLog;
using kit::Describe;
using kit::ScriptedQuery;
using kit::TouchpadLayout;
using simulator::Bytes;
using simulator::Device;
using simulator::DeviceDescription;
using simulator::Fault;
using simulator::Machine;
using testing::ElementsAre;
using testing::IsEmpty;

class HidTest : public testing::Test {
 protected:
    HidTest() { machine_.Reset(); }
    ~HidTest() override {
        machine_.SetFaultPolicy(nullptr);
        EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
        EXPECT_EQ(machine_.GlobalMemoryInUse(), 0U);
        EXPECT_THAT(machine_.Misuse(), IsEmpty());
    }

    std::shared_ptr<Device> Plug(const TouchpadLayout& layout = {}) {
        return machine_.Plug(Describe(layout));
    }
    std::shared_ptr<vela::CHIDInformation> Scan() { return vela::ScanHIDInformation(&query_); }

    // Returns how many preparsed data allocated since the test began are still in use.
    std::size_t PreparsedDataInUse() const {
        return machine_.PreparsedDataInUse() - preparsedDataAtFirst_;
    }

    Machine& machine_ = Machine::Get();
    AgentLog log_;
    ScriptedQuery query_;

 private:
    std::size_t preparsedDataAtFirst_ = machine_.PreparsedDataInUse();
};

}  // namespace hid_test
