// The process's handles. A value contains its kind, its number and the count of resets, so that a
// closed handle can still be named. No value is used twice: every use of a closed handle is
// detected.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "testing/simulator/KernelObject.h"

namespace simulator {

enum class HandleKind : std::uint8_t { File, Event, Mutex, Devices, Thread };

// Callers hold the machine's lock.
class HandleTable {
 public:
    HANDLE Add(HandleKind kind, std::shared_ptr<KernelObject> object);
    // Returns null when the handle is not open, or refers to an object of another type.
    template <typename Object>
    std::shared_ptr<Object> Find(HANDLE handle) const {
        const auto found = objects_.find(handle);
        return found != objects_.end() ? std::dynamic_pointer_cast<Object>(found->second) : nullptr;
    }
    // Returns false when the handle is not open.
    bool Close(HANDLE handle);
    // Returns whether the handle was open once and is closed now.
    bool IsClosed(HANDLE handle) const;

    // Starts the numbers again at 1. Older handles stay open but are no longer listed.
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
