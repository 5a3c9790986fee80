// The process's handles. A value tells its kind, its number and the reset it came after, so that a
// closed handle can still be named, and no value is ever used twice: the use of a closed handle is
// always seen.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "testing/simulator/KernelObject.h"

namespace simulator {

enum class HandleKind : std::uint8_t { File, Event, Mutex, Devices };

// Used under the machine's lock.
class HandleTable {
 public:
    HANDLE Add(HandleKind kind, std::shared_ptr<KernelObject> object);
    // Null when the handle is not open, or refers to something else than an Object.
    template <typename Object>
    std::shared_ptr<Object> Find(HANDLE handle) const {
        const auto found = objects_.find(handle);
        return found != objects_.end() ? std::dynamic_pointer_cast<Object>(found->second) : nullptr;
    }
    // False when the handle is not open.
    bool Close(HANDLE handle);
    // It was given out once, and is open no more.
    bool IsClosed(HANDLE handle) const;

    // Numbers start again at 1. Handles of before stay open but are no longer listed.
    void Restart();
    std::vector<std::string> OpenNames() const;
    void ReconsiderWaits() const;

 private:
    std::map<HANDLE, std::shared_ptr<KernelObject>> objects_;  // in order of creation
    std::uint64_t restarts_ = 1;
    std::uint64_t created_ = 0;
};

bool IsOfKind(HANDLE handle, HandleKind kind);

}  // namespace simulator
