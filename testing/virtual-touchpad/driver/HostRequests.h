// Handles hosts' requests to the collections before the HID class driver receives them.
#pragma once

#include "VirtualDevice.h"

// Replaces the dispatch routines that HidRegisterMinidriver has set by ones that call them.
void WrapClassDriver(DRIVER_OBJECT* driver);

// While held, hosts' writes stay pending; releasing continues them in order.
void HoldWrites(VirtualDevice* device, BOOLEAN hold);
