// Wine's CreateFile succeeds before the device's driver has answered; a refused open then fails at
// the first use of its handle only. For programs that tell apart what CreateFile itself answers.
#pragma once

#include <windows.h>

namespace virtual_touchpad {

// From now on a CreateFileW of this module (a loaded program or library) that opens a HID interface
// fails, as on Windows, when the driver refused it. Throws std::runtime_error when the module does
// not import CreateFileW.
void AwaitCreateAnswers(HMODULE module);

}  // namespace virtual_touchpad
