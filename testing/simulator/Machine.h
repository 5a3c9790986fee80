// The simulated Windows machine that native builds link instead of the platform: its HID devices,
// files, modules, named mutexes and clock, the record of every platform call, and scripted faults.
//
// One machine per process. Every operation may be called from any thread. Waiting operations of a
// test (WaitFor...) give up after ten seconds and return false.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/simulator/Calls.h"
#include "testing/simulator/Device.h"

namespace simulator {

class Machine {
 public:
    static Machine& Get();

    // Empties the machine: no devices, files, faults, calls or foreign mutexes; the real clock.
    // Handles that the agent still holds can still be closed.
    void Reset();

    // --- devices ---------------------------------------------------------------------------------
    // Adds the device at the end of the enumeration. Throws hid::DescriptorError for a descriptor
    // that cannot be parsed, std::invalid_argument when it does not hold exactly one top-level
    // collection.
    std::shared_ptr<Device> Plug(const DeviceDescription& description);
    // Does the same for a descriptor with any number of top-level collections: a device for each.
    std::vector<std::shared_ptr<Device>> PlugAll(const DeviceDescription& description);

    // Notifies programs of the resume from sleep.
    void Resume();

    // --- calls -----------------------------------------------------------------------------------
    std::vector<Call> Calls() const;
    // Text() of the calls to the named functions, or of all calls when none is named.
    std::vector<std::string> CallTexts(
        std::initializer_list<std::string_view> functions = {}) const;
    std::size_t CountCalls(std::string_view function) const;
    bool WaitForCalls(std::string_view function, std::size_t count) const;
    void ForgetCalls();
    // Sets whether opening, writing and closing real files and querying their sizes is recorded
    // like calls on devices, and can fail like them. Off after Reset: the agent's logger makes four
    // such calls for each line, at unpredictable times.
    void RecordFileCalls(bool record);
    // Long soaks switch the record off; faults still apply, and calls are still numbered.
    void RecordCalls(bool record);

    // --- faults ----------------------------------------------------------------------------------
    // Makes the next call of `function`, after `skip` calls that do their work, fail with the
    // fault. Several may be queued; each applies once.
    void FailNext(std::string_view function, Fault fault, std::size_t skip = 0);
    void FailAlways(std::string_view function, Fault fault);
    void StopFailing(std::string_view function);
    // Sets a function that is called for each call without a fault from above. It must not call the
    // platform.
    void SetFaultPolicy(std::function<std::optional<Fault>(const Call&)> policy);

    // --- time ------------------------------------------------------------------------------------
    // Makes a wait with a time limit on an unsignalled object return WAIT_TIMEOUT at once. Waits
    // without limit still wait.
    void ExpireTimedWaits(bool expire);
    // Sets the local time, "2024-05-06 17:41:58", that _time64 and _localtime64_s return from now
    // on; it stands still. Throws std::invalid_argument when the text is no time.
    void StopClockAt(const std::string& localTime);

    // --- files, modules, mutexes -----------------------------------------------------------------
    // Adds a file that GetPrivateProfileSectionNamesW can read. The path is compared without case.
    void PutFile(const std::wstring& path, const std::string& bytes);
    // Sets the path that GetModuleFileNameW returns for this module handle.
    void SetModulePath(void* module, const std::wstring& path);
    // Adds a library that LoadLibraryExW can load, with the functions that GetProcAddress returns.
    void PutLibrary(const std::wstring& path, const std::map<std::string, void*>& functions);
    // Adds a named mutex of another process. With `denied`, opening it fails with error 5.
    void HoldMutexElsewhere(const std::wstring& name, bool denied);
    void ReleaseMutexElsewhere(const std::wstring& name);
    bool MutexExists(const std::wstring& name) const;
    // The texts passed to OutputDebugStringA.
    std::vector<std::string> DebugOutput() const;

    // --- accounting ------------------------------------------------------------------------------
    // Names of all open handles, "file#1", "event#2", ..., in order of creation.
    std::vector<std::string> OpenHandles() const;
    // Real files that are open; OpenHandles does not list them.
    std::size_t OpenRealFiles() const;
    // Blocks of HidD_GetPreparsedData not yet freed; GlobalAlloc blocks not yet freed.
    std::size_t PreparsedDataInUse() const;
    std::size_t GlobalMemoryInUse() const;
    // Misuse that a test would not see otherwise: preparsed data freed twice or used after its end,
    // unknown handles closed, a device's handle used after its end, GlobalFree of an unknown block.
    // Empty when all is well. The invalid handle value passed to SetupDiDestroyDeviceInfoList
    // counts as harmless.
    std::vector<std::string> Misuse() const;

 private:
    Machine();
};

}  // namespace simulator
