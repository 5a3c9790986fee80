// The configuration of a virtual device, read from its hardware key in the registry.
#pragma once

#include "HidMinidriver.h"

#define MAX_DESCRIPTOR 4096
#define MAX_NAME_CHARS 128

typedef struct DeviceConfiguration {
    UCHAR descriptor[MAX_DESCRIPTOR];
    ULONG descriptorLength;
    USHORT vendorId;
    USHORT productId;
    USHORT versionNumber;
    WCHAR productString[MAX_NAME_CHARS];
    WCHAR controlLink[MAX_NAME_CHARS];
    // The rule for the report id of an output report that has none.
    BOOLEAN fillsOutputId;
    ULONG outputIdOffset;
    UCHAR outputIdIfSet;
    UCHAR outputIdIfClear;
} DeviceConfiguration;

// Fails when the report descriptor or the control link is missing or too long.
NTSTATUS ReadDeviceConfiguration(DEVICE_OBJECT* physicalDevice, DeviceConfiguration* configuration);
