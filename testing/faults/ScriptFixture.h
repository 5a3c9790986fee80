// Runs a script: a machine with a touchpad and a haptic touchpad, a host that keeps a log, and a
// record of all that the host observes.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "testing/faults/CallWatch.h"
#include "testing/faults/Script.h"
#include "testing/kit/native/LibraryFolder.h"
#include "testing/kit/native/TouchpadTest.h"

namespace faults {

class ScriptFixture {
 public:
    // Empties `folder` and logs there. No session is open.
    ScriptFixture(const virtual_touchpad::TouchpadLayout& layout, Script::Subject subject,
                  const std::filesystem::path& folder, CallWatch::Chooser chooser);

    void Do(const Step& step);
    // Runs the steps, and waits after each until the agent's threads sleep.
    void Play(const std::vector<Step>& steps);

    simulator::Device& Touchpad() { return *touchpad_; }
    simulator::Device& HapticTouchpad() { return *hapticTouchpad_; }
    const std::filesystem::path& LogDirectory() const { return logDirectory_; }
    CallWatch& Watch() { return *watch_; }

    // Return the number of blocks that were allocated since the run began and not freed.
    std::size_t PreparsedDataInUse() const;
    std::size_t GlobalMemoryInUse() const;

    // Returns the results, callbacks and log lines of the steps so far, sorted: "Init -> 1",
    // "press 0 1", "{ERROR @ Function} text".
    std::vector<std::string> Events() const;

 private:
    std::filesystem::path logDirectory_;
    std::size_t oldPreparsedData_ = 0;
    std::size_t oldGlobalMemory_ = 0;
    std::optional<kit::LibraryFolder> library_;
    std::shared_ptr<simulator::Device> touchpad_;
    std::shared_ptr<simulator::Device> hapticTouchpad_;
    std::unique_ptr<CallWatch> watch_;
    std::vector<std::string> results_;
};

}  // namespace faults
