// Runs code in a process of its own: the library's singletons are fresh there, a crash or a hang
// ends that process only, and it exits as a host does.
#pragma once

#include <functional>
#include <string>

namespace faults {

struct ChildEnd {
    // The text that the body returned; empty when it never returned.
    std::string output;
    // "normal"; "terminate" when the C++ runtime ended the process while its objects were
    // destroyed, as it does for a joinable thread object; otherwise a description of the failure.
    std::string end;
};

// Runs the body in a fork of this process, which must have no other thread, and waits for its end.
// An alarm ends a child that takes longer than half a minute.
ChildEnd RunInChild(const std::function<std::string()>& body);

}  // namespace faults
