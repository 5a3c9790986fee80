// The requests that hosts send to the collections, seen before the HID class driver sees them.
#pragma once

#include "VirtualDevice.h"

// Puts itself in front of the dispatch routines that HidRegisterMinidriver has set.
void WrapClassDriver(DRIVER_OBJECT* driver);

// While held, hosts' writes stay pending; releasing lets them go on in order.
void HoldWrites(VirtualDevice* device, BOOLEAN hold);
