#include "ControlDevice.h"

#include "HostRequests.h"
#include "Opens.h"
#include "Reports.h"

#define NAME_ROOM (MAX_NAME_CHARS + 16)
// A vendor-defined device type, which no device of the class driver has.
#define CONTROL_DEVICE_TYPE 0x8043

static void MakeName(UNICODE_STRING* name, WCHAR* buffer, const WCHAR* folder, const WCHAR* link) {
    wcscpy(buffer, folder);
    wcscat(buffer, link);
    RtlInitUnicodeString(name, buffer);
}

NTSTATUS CreateControlDevice(DRIVER_OBJECT* driver, VirtualDevice* device) {
    WCHAR deviceBuffer[NAME_ROOM];
    WCHAR linkBuffer[NAME_ROOM];
    UNICODE_STRING deviceName;
    UNICODE_STRING linkName;
    NTSTATUS status;
    MakeName(&deviceName, deviceBuffer, L"\\Device\\", device->configuration.controlLink);
    MakeName(&linkName, linkBuffer, L"\\DosDevices\\", device->configuration.controlLink);
    status = IoCreateDevice(driver, 0, &deviceName, CONTROL_DEVICE_TYPE, 0, FALSE,
                            &device->controlDevice);
    if (!NT_SUCCESS(status)) return status;
    status = IoCreateSymbolicLink(&linkName, &deviceName);
    if (!NT_SUCCESS(status)) {
        IoDeleteDevice(device->controlDevice);
        device->controlDevice = NULL;
        return status;
    }
    ObReferenceObject(device->controlDevice);
    device->controlDevice->Flags &= ~DO_DEVICE_INITIALIZING;
    return status;
}

void DeleteControlDevice(VirtualDevice* device) {
    WCHAR linkBuffer[NAME_ROOM];
    UNICODE_STRING linkName;
    DEVICE_OBJECT* controlDevice = InterlockedExchangePointer((PVOID*)&device->controlDevice, NULL);
    if (controlDevice == NULL) return;
    MakeName(&linkName, linkBuffer, L"\\DosDevices\\", device->configuration.controlLink);
    IoDeleteSymbolicLink(&linkName);
    IoDeleteDevice(controlDevice);
    RetireDeviceObject(controlDevice);
}

BOOLEAN IsControlObject(const DEVICE_OBJECT* object) {
    return object->DeviceType == CONTROL_DEVICE_TYPE;
}

static void CopyState(VirtualDevice* device, VirtualHidState* state) {
    KIRQL irql;
    RtlZeroMemory(state, sizeof(*state));
    state->heldWrites = CountIrps(&device->heldWrites);
    KeAcquireSpinLock(&device->lock, &irql);
    state->outputCount = device->outputCount;
    state->featureSetCount = device->featureSetCount;
    state->featureGetCount = device->featureGetCount;
    state->queuedInputs = device->inputCount;
    state->enumerations = device->enumerations;
    RtlCopyMemory(state->requests, device->requests, sizeof(state->requests));
    CountOpens(device, state);
    KeReleaseSpinLock(&device->lock, irql);
}

static void SetNextStatus(VirtualDevice* device, NTSTATUS* place, NTSTATUS status) {
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    *place = status;
    KeReleaseSpinLock(&device->lock, irql);
}

// `buffer` contains the input and receives the output; `room` is the size for the output and
// `written` its length.
static NTSTATUS Control(VirtualDevice* device, ULONG code, void* buffer, ULONG length, ULONG room,
                        ULONG* written) {
    switch (code) {
        case IOCTL_VIRTUAL_HID_SEND_INPUT:
            return QueueInput(device, buffer, length);
        case IOCTL_VIRTUAL_HID_SET_FEATURE:
            return StoreFeature(device, buffer, length);
        case IOCTL_VIRTUAL_HID_GET_FEATURE:
            if (length != 1) return STATUS_INVALID_PARAMETER;
            return GetStoredFeature(device, *(UCHAR*)buffer, buffer, room, written);
        case IOCTL_VIRTUAL_HID_GET_STATE:
            if (room < sizeof(VirtualHidState)) return STATUS_BUFFER_TOO_SMALL;
            CopyState(device, buffer);
            *written = sizeof(VirtualHidState);
            return STATUS_SUCCESS;
        case IOCTL_VIRTUAL_HID_GET_OUTPUTS:
            if (length != sizeof(ULONGLONG)) return STATUS_INVALID_PARAMETER;
            *written =
                sizeof(VirtualHidOutput) * CopyOutputsSince(device, *(ULONGLONG*)buffer, buffer,
                                                            room / sizeof(VirtualHidOutput));
            return STATUS_SUCCESS;
        case IOCTL_VIRTUAL_HID_HOLD_WRITES:
            if (length != sizeof(ULONG)) return STATUS_INVALID_PARAMETER;
            HoldWrites(device, *(ULONG*)buffer != 0);
            return STATUS_SUCCESS;
        case IOCTL_VIRTUAL_HID_FAIL_NEXT_WRITE:
            if (length != sizeof(NTSTATUS)) return STATUS_INVALID_PARAMETER;
            SetNextStatus(device, &device->nextWriteStatus, *(NTSTATUS*)buffer);
            return STATUS_SUCCESS;
        case IOCTL_VIRTUAL_HID_FAIL_NEXT_FEATURE:
            if (length != sizeof(NTSTATUS)) return STATUS_INVALID_PARAMETER;
            SetNextStatus(device, &device->nextFeatureStatus, *(NTSTATUS*)buffer);
            return STATUS_SUCCESS;
        case IOCTL_VIRTUAL_HID_LIMIT_OPENS:
            if (length != sizeof(ULONG)) return STATUS_INVALID_PARAMETER;
            LimitOpens(device, *(ULONG*)buffer);
            return STATUS_SUCCESS;
        default:
            return STATUS_INVALID_DEVICE_REQUEST;
    }
}

NTSTATUS DispatchControlRequest(VirtualDevice* device, IRP* irp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    ULONG written = 0;
    NTSTATUS status;
    switch (stack->MajorFunction) {
        case IRP_MJ_CREATE:
        case IRP_MJ_CLOSE:
            return CompleteIrp(irp, STATUS_SUCCESS, 0);
        case IRP_MJ_DEVICE_CONTROL:
            status = Control(device, stack->Parameters.DeviceIoControl.IoControlCode,
                             irp->AssociatedIrp.SystemBuffer,
                             stack->Parameters.DeviceIoControl.InputBufferLength,
                             stack->Parameters.DeviceIoControl.OutputBufferLength, &written);
            return CompleteIrp(irp, status, written);
        default:
            return CompleteIrp(irp, STATUS_INVALID_DEVICE_REQUEST, 0);
    }
}
