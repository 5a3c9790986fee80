// The platform's HID headers. Not every toolchain's hidpi.h declares its functions for C++.
#pragma once

#include <windows.h>

extern "C" {
#include <hidsdi.h>

#include <hidpi.h>
}
