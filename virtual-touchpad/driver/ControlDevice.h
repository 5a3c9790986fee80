// A virtual device's control link: the device object a test opens to press buttons and to see what
// hosts wrote.
#pragma once

#include "VirtualDevice.h"

NTSTATUS CreateControlDevice(DRIVER_OBJECT* driver, VirtualDevice* device);
void DeleteControlDevice(VirtualDevice* device);

// For requests to a control device.
NTSTATUS DispatchControlRequest(VirtualDevice* device, IRP* irp);
