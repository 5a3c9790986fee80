// Reads back the reports that a session has written.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {

// Waits until the device has all reports queued so far, returns them and has the device forget
// them. Reports are written in the order of their queue, so a state request marks the end.
inline std::vector<Bytes> WrittenReports(vela::CTandrelHID& session, simulator::Device& device) {
    EXPECT_TRUE(session.UpdateVelaState());
    std::vector<Bytes> reports;
    do {
        if (!device.WaitForOutputs(reports.size() + 1)) {
            ADD_FAILURE() << "the state request was not written";
            return reports;
        }
        reports = device.Outputs();
    } while (reports.back() != RequestReport());
    reports.pop_back();
    device.ForgetOutputs();
    return reports;
}

}  // namespace kit
