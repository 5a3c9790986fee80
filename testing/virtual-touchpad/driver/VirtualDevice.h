// One virtual device: its configuration, the reports of its hosts, and their open handles.
#pragma once

#include "../control/ControlProtocol.h"
#include "DeviceConfiguration.h"
#include "IrpQueue.h"

#define MAX_COLLECTIONS 8
#define MAX_FEATURES 16
#define MAX_QUEUED_INPUTS 64

typedef struct Report {
    ULONG length;
    UCHAR bytes[VIRTUAL_HID_MAX_REPORT];
} Report;

typedef struct VirtualDevice {
    LIST_ENTRY link;  // in the list of all devices
    LONG references;
    DeviceConfiguration configuration;
    // The device objects that belong to it: the class driver's function device, the collections it
    // exposes, and its control device.
    DEVICE_OBJECT* functionDevice;
    DEVICE_OBJECT* collections[MAX_COLLECTIONS];
    DEVICE_OBJECT* controlDevice;

    LONG requests[VIRTUAL_HID_REQUEST_KINDS];  // by kind, changed by interlocked operations

    IrpQueue reads;       // the class driver's reads, waiting for an input report
    IrpQueue heldWrites;  // hosts' writes, waiting for the release

    KSPIN_LOCK lock;  // guards: all below
    LIST_ENTRY opens;
    ULONG allowedOpens;  // still allowed; VIRTUAL_HID_UNLIMITED_OPENS: no limit
    BOOLEAN holdsWrites;
    NTSTATUS nextWriteStatus;
    NTSTATUS nextFeatureStatus;
    ULONG enumerations;
    ULONGLONG outputCount;
    VirtualHidOutput outputs[VIRTUAL_HID_OUTPUT_HISTORY];  // number n at n % the size
    ULONG featureSetCount;
    ULONG featureGetCount;
    Report features[MAX_FEATURES];  // the first ones are used; byte 0 is the id
    ULONG inputCount;
    ULONG firstInput;
    Report inputs[MAX_QUEUED_INPUTS];
} VirtualDevice;

void InitializeVirtualDevices(void);

// Each returns a reference, which the caller gives to ReleaseVirtualDevice, or null.
VirtualDevice* CreateVirtualDevice(DEVICE_OBJECT* functionDevice);
VirtualDevice* FindByFunctionDevice(const DEVICE_OBJECT* device);
VirtualDevice* FindByCollection(const DEVICE_OBJECT* device);
VirtualDevice* FindByControlDevice(const DEVICE_OBJECT* device);
void ReleaseVirtualDevice(VirtualDevice* device);
// Removes the device from the list that the Find functions search, and releases its creator's
// reference.
void ForgetVirtualDevice(VirtualDevice* device);

void SetCollections(VirtualDevice* device, const DEVICE_RELATIONS* relations);

// Takes over a reference to the device object. Wine still dispatches the requests that were under
// way when it was deleted, so it is freed only after 64 others have been retired.
void RetireDeviceObject(DEVICE_OBJECT* object);
