// The name of a function in its log lines, for functions that log often.
#pragma once

#include <string>

namespace vela {

// The string is created once: a literal would be converted at every call, even one that the logger
// drops, and names of more than 15 characters need the heap. It is never destroyed, as threads of a
// session that was left open log until the process is gone.
class FunctionName {
 public:
    explicit FunctionName(const char* name) : name_(*new std::string(name)) {}
    operator const std::string&() const { return name_; }  // not explicit: it stands in for one

 private:
    const std::string& name_;
};

}  // namespace vela
