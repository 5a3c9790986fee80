// A simulated machine with one touchpad, and an open session on it with all buttons lit.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "simulator/Machine.h"
#include "touchpad/TandrelHID.h"

namespace bench {

// The touchpad as it comes, or another device that no session wants.
simulator::DeviceDescription Touchpad();
simulator::DeviceDescription OtherDevice();

// An empty machine that keeps no record of calls.
simulator::Machine& EmptyMachine();

class Stage {
 public:
    Stage();
    ~Stage();

    vela::CTandrelHID& Session() { return session_; }
    simulator::Device& Device() { return *device_; }
    // Waits until the writer has nothing left to write.
    void Settle();

 private:
    std::shared_ptr<simulator::Device> device_;
    vela::CTandrelHID session_;
};

// A new folder for log files, removed at the end.
class LogFolder {
 public:
    LogFolder();
    ~LogFolder();
    // The agent joins its file's name with a backslash, which is a letter like any other here.
    std::filesystem::path AgentLog() const;
    std::wstring ForAgent() const { return folder_.wstring(); }
    const std::filesystem::path& Path() const { return folder_; }

 private:
    std::filesystem::path folder_;
};

}  // namespace bench
