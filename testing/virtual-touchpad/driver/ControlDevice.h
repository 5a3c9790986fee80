// A virtual device's control link: the device object that a test opens to press buttons and to read
// what hosts wrote.
#pragma once

#include "VirtualDevice.h"

NTSTATUS CreateControlDevice(DRIVER_OBJECT* driver, VirtualDevice* device);
void DeleteControlDevice(VirtualDevice* device);

// Returns TRUE for a deleted one as well, as long as requests to it are under way.
BOOLEAN IsControlObject(const DEVICE_OBJECT* object);
// Handles requests to a control device.
NTSTATUS DispatchControlRequest(VirtualDevice* device, IRP* irp);
