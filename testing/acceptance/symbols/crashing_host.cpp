// A host whose button callback crashes: its backtrace goes through the library's reader thread.
#include <windows.h>

#include <cstdint>

#include "VelaAgent.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

constexpr std::uint16_t kCameraUsage = 0x41;

void Crash(std::uint32_t, std::uint32_t) {
    // An address that is never mapped.
    *reinterpret_cast<volatile int*>(std::uintptr_t{16}) = 0;
}

}  // namespace

int main() {
    virtual_touchpad::UnplugAll();
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad(virtual_touchpad::kDefaultName);
    if (Init() != VELA_INIT_OPEN) return 1;
    SetVelaButtonPressCallback(Crash);
    Activate(VELA_ACTIVE);
    EnableFeature(1);
    EnableSingleButton(VELA_BUTTON_CAMERA, 1);
    touchpad.Press(kCameraUsage);
    Sleep(INFINITE);
}
