// The stage of discovery's tests: a simulated machine, a log, and a query with what it wants.
// Whatever the agent took from the machine while a test ran, it has to have given back.
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

    // Parsed descriptors that are still allocated since the test began.
    std::size_t DescriptorsInUse() const {
        return machine_.PreparsedDataInUse() - descriptorsAtFirst_;
    }

    Machine& machine_ = Machine::Get();
    AgentLog log_;
    ScriptedQuery query_;

 private:
    std::size_t descriptorsAtFirst_ = machine_.PreparsedDataInUse();
};

}  // namespace hid_test
