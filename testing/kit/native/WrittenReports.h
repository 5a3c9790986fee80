// What the session has written, told apart from what it will never write.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {

// Every report that the device got of those queued so far; the device forgets them. Reports are
// written in the order in which they were queued, so a state request marks the end.
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
