// A simulated machine with one touchpad, and an open session on it with all buttons lit.
#pragma once

#include <cstdint>
#include <memory>

#include "testing/simulator/Machine.h"
#include "touchpad/TandrelHID.h"

namespace bench {

// The touchpad as it comes, or another device that no session wants.
simulator::DeviceDescription Touchpad();
simulator::DeviceDescription OtherDevice();

// An empty machine that keeps no record of calls.
simulator::Machine& EmptyMachine();

class SessionFixture {
 public:
    SessionFixture();
    ~SessionFixture();

    vela::CTandrelHID& Session() { return session_; }
    simulator::Device& Device() { return *device_; }
    // Waits until the writer has nothing left to write.
    void Settle();

 private:
    std::shared_ptr<simulator::Device> device_;
    vela::CTandrelHID session_;
};

}  // namespace bench
