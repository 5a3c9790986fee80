// A simulated machine with one touchpad, and an open session on it with all buttons lit.
#pragma once

#include <cstdint>
#include <memory>

#include "testing/simulator/Machine.h"
#include "touchpad/TandrelHID.h"

namespace bench {

// Return the standard touchpad, and a device that no session opens.
simulator::DeviceDescription Touchpad();
simulator::DeviceDescription OtherDevice();

// Returns an empty machine that does not record calls.
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
