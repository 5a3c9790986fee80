// What the HID class driver asks of its minidriver.
#pragma once

#include "HidMinidriver.h"

DRIVER_DISPATCH DispatchClassRequest;
