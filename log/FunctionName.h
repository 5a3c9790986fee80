// The name under which a function logs, where it logs often.
#pragma once

#include <string>

namespace vela {

// Made once: of a literal a string would be made for every call, even one that the logger drops,
// and names of more than 15 characters take it from the heap. Never destroyed, as threads of a
// session that was left open log until the process is gone.
class FunctionName {
 public:
    explicit FunctionName(const char* name) : name_(*new std::string(name)) {}
    operator const std::string&() const { return name_; }  // not explicit: it stands in for one

 private:
    const std::string& name_;
};

}  // namespace vela
