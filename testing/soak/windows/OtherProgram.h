// Another program, which opens the touchpad for itself at once when it arrives.
#pragma once

#include <windows.h>

#include <memory>

#include "testing/kit/windows/ChildProcess.h"

namespace soak {

class OtherProgram {
 public:
    // Returns when the program waits for the touchpad.
    OtherProgram();
    // Ends it.
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    // Lets the program end, which gives the touchpad back. Returns whether it had it.
    bool End();

 private:
    const HANDLE ready_;
    const HANDLE release_;
    std::unique_ptr<kit::ChildProcess> process_;
};

}  // namespace soak
