// The open handles of a device and their share modes, which Wine's HID class driver does not
// enforce.
#pragma once

#include "VirtualDevice.h"

// Access and share mode in the same bits: FILE_SHARE_READ and FILE_SHARE_WRITE.
typedef struct OpenMode {
    ULONG access;
    ULONG share;
} OpenMode;

// Called once, from the driver's entry point.
void InitializeOpens(void);

OpenMode OpenModeOf(IRP* createIrp);

// Returns STATUS_SHARING_VIOLATION when it conflicts with an existing open, or no further open is
// allowed. An open without read and write access conflicts with none.
NTSTATUS AddOpen(VirtualDevice* device, const FILE_OBJECT* file, OpenMode mode);
BOOLEAN IsOpen(VirtualDevice* device, const FILE_OBJECT* file);
void RemoveOpen(VirtualDevice* device, const FILE_OBJECT* file);
void LimitOpens(VirtualDevice* device, ULONG allowed);
// The caller holds the device's lock.
void CountOpens(const VirtualDevice* device, VirtualHidState* state);
