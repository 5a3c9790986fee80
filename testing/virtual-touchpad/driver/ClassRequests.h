// The requests of the HID class driver to its minidriver.
#pragma once

#include "HidMinidriver.h"

DRIVER_DISPATCH DispatchClassRequest;
