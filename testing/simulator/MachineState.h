// The state of the simulated machine. One lock guards all of it, devices and kernel objects
// included; a waiting thread releases the lock while it sleeps.
#pragma once

#include <chrono>
#include <condition_variable>
#include <ctime>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "testing/simulator/CallLog.h"
#include "testing/simulator/DeviceObject.h"
#include "testing/simulator/FaultScript.h"
#include "testing/simulator/HandleTable.h"
#include "testing/simulator/RealFiles.h"

namespace simulator {

struct ForeignMutex {
    std::shared_ptr<KernelObject> object;
    bool denied = false;
};

struct MachineState {
    std::mutex mutex;                 // guards: all below
    std::condition_variable changed;  // for a test's waiting operations

    CallLog calls;
    FaultScript faults;
    HandleTable handles;
    RealFiles realFiles;
    bool recordsFileCalls = false;
    bool endTimedWaits = false;

    std::vector<std::shared_ptr<DeviceObject>> devices;  // in order of enumeration, absent ones too
    std::size_t pluggedDevices = 0;                      // since the last Reset

    // An entry outlives its object, until the next object of its name overwrites it.
    std::map<std::wstring, std::weak_ptr<KernelObject>> names;
    std::map<std::wstring, ForeignMutex> foreignMutexes;

    std::map<std::wstring, std::string> files;  // by path in lower case
    std::map<void*, std::wstring> modules;
    std::map<std::wstring, std::map<std::string, void*>> libraries;  // by path in lower case
    std::optional<std::tm> stoppedClock;
    std::vector<std::string> debugOutput;

    std::unordered_set<void*> globalMemory;
    std::vector<std::string> misuse;
};

// The state is never destroyed: threads and static objects of the agent make calls until the
// process ends.
MachineState& State();

// Returns null when no object of the name is left. Callers hold the lock.
std::shared_ptr<KernelObject> FindNamed(const std::wstring& name);

// Returns the open file of the handle that `function` received, or null for any other handle. A
// handle that is already closed is noted as misuse: on a real machine its value may belong to
// another file by now. Callers hold the lock.
std::shared_ptr<FileObject> FindFile(HANDLE handle, const char* function);

class MachineLock : public std::unique_lock<std::mutex> {
 public:
    MachineLock() : std::unique_lock<std::mutex>(State().mutex) {}
};

// Waits on behalf of a test; returns false after ten seconds.
template <typename Predicate>
bool WaitUntil(MachineLock& lock, Predicate predicate) {
    return State().changed.wait_for(lock, std::chrono::seconds(10), predicate);
}

}  // namespace simulator
