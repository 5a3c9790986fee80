// A run in a process of its own: the library's singletons are fresh in it, a crash or a hang ends
// it alone, and its exit is the exit of a host.
#pragma once

#include <functional>
#include <string>

namespace faults {

struct ChildEnd {
    // What the body returned; empty when it never did.
    std::string output;
    // "normal"; "terminate": the C++ runtime ended the process while its objects were destroyed, as
    // it does when a thread object was not joined; otherwise what went wrong, in words.
    std::string end;
};

// Runs the body in a copy of this process, which must have no other thread, and waits for its end.
// A child that is not done after half a minute is ended by its own alarm clock.
ChildEnd RunInChild(const std::function<std::string()>& body);

}  // namespace faults
