// The touchpad itself: opening and closing it, and what the session knows of its plug.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include <windows.h>

#include "platform/Mutex.h"
#include "touchpad/OpenTouchpad.h"
#include "touchpad/OverlappedOperations.h"

namespace vela {

// Any thread may call any operation; Open, MarkSessionOpen and Close are one thread's at a time.
class TouchpadDevice {
 public:
    TouchpadDevice() = default;
    TouchpadDevice(const TouchpadDevice&) = delete;
    TouchpadDevice& operator=(const TouchpadDevice&) = delete;

    // Opens the device of the record for this process alone. A HidInitializeResult; a failure is
    // logged.
    std::uint32_t Open(const std::shared_ptr<const CHIDInformation>& information);
    // Tells other processes, by a name, that a session is open.
    void MarkSessionOpen();
    // Closes the device, takes the name back and lets go of the record. Waits for the platform
    // calls that other threads have in flight on the device.
    void Close();

    // Whether the session takes calls: set when all of its threads run, cleared before Close.
    bool IsInitialized() const { return initialized_; }
    void SetInitialized(bool initialized) { initialized_ = initialized; }

    // The touchpad that is open now; never null, without record and handle while none is.
    std::shared_ptr<OpenTouchpad> Current() const { return std::atomic_load(&current_); }

    // True when the query could be answered, that is while the session is open.
    bool GetDeviceConnectState(bool& connected);
    // True for a touchpad that can be taken off the machine, and for one whose product string
    // cannot be read.
    bool IsDetachable();

    OverlappedOperations& Operations() { return operations_; }

 private:
    void ReadProductString() VELA_REQUIRES(productMutex_);

    std::atomic<bool> initialized_{false};  // no lock: a reader a moment early sees the older value
    // Read and replaced through std::atomic_load and std::atomic_store.
    std::shared_ptr<OpenTouchpad> current_ = std::make_shared<OpenTouchpad>(nullptr, nullptr);
    HANDLE deviceMutex_ =
        nullptr;          // of whoever opens and closes; of this session's own making only
    Mutex queryMutex_;    // guards: the connection probe, one at a time
    Mutex productMutex_;  // guards: productString_
    // In lower case. Kept for the life of this object: the first touchpad's answer holds.
    std::wstring productString_ VELA_GUARDED_BY(productMutex_);
    OverlappedOperations operations_;  // has a mutex of its own
};

}  // namespace vela
