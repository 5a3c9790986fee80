// A virtual device's reports: inputs on their way to the class driver, outputs received, features
// stored.
#pragma once

#include "VirtualDevice.h"

// Input. Queues the report and completes waiting reads with queued reports. A full queue drops its
// oldest report.
NTSTATUS QueueInput(VirtualDevice* device, const UCHAR* bytes, ULONG length);
// Queues a read of the class driver; returns the status for its dispatch routine.
NTSTATUS QueueRead(VirtualDevice* device, IRP* irp);

// Output.
NTSTATUS RecordOutput(VirtualDevice* device, const UCHAR* bytes, ULONG length);
// Returns the number of outputs copied.
ULONG CopyOutputsSince(VirtualDevice* device, ULONGLONG sequence, VirtualHidOutput* outputs,
                       ULONG room);

// Features, for hosts. An id that was never set reads as zeros.
NTSTATUS ReadFeature(VirtualDevice* device, UCHAR* bytes, ULONG length);
NTSTATUS WriteFeature(VirtualDevice* device, const UCHAR* bytes, ULONG length);
// Features, for the control link.
NTSTATUS GetStoredFeature(VirtualDevice* device, UCHAR id, UCHAR* bytes, ULONG room, ULONG* length);
NTSTATUS StoreFeature(VirtualDevice* device, const UCHAR* bytes, ULONG length);
