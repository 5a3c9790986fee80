// A virtual device's reports: inputs on their way to the class driver, outputs received, features
// stored.
#pragma once

#include "VirtualDevice.h"

// Input. Queues the report and hands queued reports to waiting reads. When too many wait, the
// oldest is dropped.
NTSTATUS QueueInput(VirtualDevice* device, const UCHAR* bytes, ULONG length);
// A read of the class driver; returns what its dispatch routine has to return.
NTSTATUS QueueRead(VirtualDevice* device, IRP* irp);

// Output.
NTSTATUS RecordOutput(VirtualDevice* device, const UCHAR* bytes, ULONG length);
// Returns the number of outputs copied.
ULONG CopyOutputsSince(VirtualDevice* device, ULONGLONG sequence, VirtualHidOutput* outputs,
                       ULONG room);

// Features, as a host asks for them. An id that nobody has set reads as zeros.
NTSTATUS ReadFeature(VirtualDevice* device, UCHAR* bytes, ULONG length);
NTSTATUS WriteFeature(VirtualDevice* device, const UCHAR* bytes, ULONG length);
// Features, as the control link asks for them.
NTSTATUS GetStoredFeature(VirtualDevice* device, UCHAR id, UCHAR* bytes, ULONG room, ULONG* length);
NTSTATUS StoreFeature(VirtualDevice* device, const UCHAR* bytes, ULONG length);
