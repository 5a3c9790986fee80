#include "DeviceConfiguration.h"

#include "../control/ControlProtocol.h"

// Reads a value of the given type; `size` is the buffer's size on entry and the value's on return.
static NTSTATUS ReadValue(HANDLE key, const WCHAR* name, ULONG type, void* data, ULONG* size) {
    UNICODE_STRING valueName;
    KEY_VALUE_PARTIAL_INFORMATION* value;
    ULONG length = FIELD_OFFSET(KEY_VALUE_PARTIAL_INFORMATION, Data) + *size;
    NTSTATUS status;
    value = ExAllocatePoolWithTag(NonPagedPool, length, POOL_TAG);
    if (value == NULL) return STATUS_INSUFFICIENT_RESOURCES;
    RtlInitUnicodeString(&valueName, name);
    status = ZwQueryValueKey(key, &valueName, KeyValuePartialInformation, value, length, &length);
    if (NT_SUCCESS(status) && value->Type != type) status = STATUS_OBJECT_TYPE_MISMATCH;
    if (NT_SUCCESS(status)) {
        *size = value->DataLength;
        RtlCopyMemory(data, value->Data, value->DataLength);
    }
    ExFreePoolWithTag(value, POOL_TAG);
    return status;
}

static NTSTATUS ReadString(HANDLE key, const WCHAR* name, WCHAR* text) {
    // A registry string need not end with a null character.
    ULONG size = (MAX_NAME_CHARS - 1) * sizeof(WCHAR);
    NTSTATUS status = ReadValue(key, name, REG_SZ, text, &size);
    text[NT_SUCCESS(status) ? size / sizeof(WCHAR) : 0] = 0;
    return status;
}

static NTSTATUS ReadNumber(HANDLE key, const WCHAR* name, ULONG* number) {
    ULONG size = sizeof(*number);
    return ReadValue(key, name, REG_DWORD, number, &size);
}

static USHORT ReadId(HANDLE key, const WCHAR* name) {
    ULONG number = 0;
    ReadNumber(key, name, &number);
    return (USHORT)number;
}

static void ReadOutputIdRule(HANDLE key, DeviceConfiguration* configuration) {
    ULONG ifSet;
    ULONG ifClear;
    configuration->fillsOutputId =
        NT_SUCCESS(ReadNumber(key, VIRTUAL_HID_VALUE_ID_OFFSET, &configuration->outputIdOffset)) &&
        NT_SUCCESS(ReadNumber(key, VIRTUAL_HID_VALUE_ID_IF_SET, &ifSet)) &&
        NT_SUCCESS(ReadNumber(key, VIRTUAL_HID_VALUE_ID_IF_CLEAR, &ifClear));
    if (!configuration->fillsOutputId) return;
    configuration->outputIdIfSet = (UCHAR)ifSet;
    configuration->outputIdIfClear = (UCHAR)ifClear;
}

NTSTATUS ReadDeviceConfiguration(DEVICE_OBJECT* physicalDevice,
                                 DeviceConfiguration* configuration) {
    HANDLE key;
    NTSTATUS status =
        IoOpenDeviceRegistryKey(physicalDevice, PLUGPLAY_REGKEY_DEVICE, KEY_READ, &key);
    if (!NT_SUCCESS(status)) return status;
    RtlZeroMemory(configuration, sizeof(*configuration));
    configuration->descriptorLength = sizeof(configuration->descriptor);
    status = ReadValue(key, VIRTUAL_HID_VALUE_DESCRIPTOR, REG_BINARY, configuration->descriptor,
                       &configuration->descriptorLength);
    if (NT_SUCCESS(status)) {
        status = ReadString(key, VIRTUAL_HID_VALUE_CONTROL_LINK, configuration->controlLink);
    }
    ReadString(key, VIRTUAL_HID_VALUE_PRODUCT, configuration->productString);
    configuration->vendorId = ReadId(key, VIRTUAL_HID_VALUE_VENDOR_ID);
    configuration->productId = ReadId(key, VIRTUAL_HID_VALUE_PRODUCT_ID);
    configuration->versionNumber = ReadId(key, VIRTUAL_HID_VALUE_VERSION);
    ReadOutputIdRule(key, configuration);
    ZwClose(key);
    return status;
}
