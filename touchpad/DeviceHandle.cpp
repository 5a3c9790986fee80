#include "touchpad/DeviceHandle.h"

#include <utility>

#include "platform/Lock.h"

namespace vela {

HANDLE DeviceHandle::Enter() {
    const Lock lock(mutex_);
    if (handle_ != nullptr) ++users_;
    return handle_;
}

void DeviceHandle::Leave() {
    const Lock lock(mutex_);
    if (--users_ == 0) unused_.notify_all();
}

bool DeviceHandle::IsOpen() {
    const Lock lock(mutex_);
    return handle_ != nullptr;
}

void DeviceHandle::Close() {
    HANDLE handle = nullptr;
    {
        const Lock lock(mutex_);
        handle = std::exchange(handle_, nullptr);
        while (users_ > 0) unused_.wait(mutex_);
    }
    if (handle != nullptr) CloseHandle(handle);
}

}  // namespace vela
