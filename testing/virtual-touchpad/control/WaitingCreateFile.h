// Wine's CreateFile succeeds without waiting for the driver, so a refused open only fails at the
// first use of its handle. This function is for programs that depend on the result of CreateFile.
#pragma once

#include <windows.h>

namespace virtual_touchpad {

// Makes every CreateFileW of this module (a loaded program or library) on a HID interface fail, as
// on Windows, when the driver refuses the open. Throws std::runtime_error when the module does not
// import CreateFileW.
void MakeCreateFileWait(HMODULE module);

}  // namespace virtual_touchpad
