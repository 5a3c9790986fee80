// The platform's HID headers, in the order in which they compile.
#pragma once

#include <windows.h>

#include <hidsdi.h>

#include <hidpi.h>
