#include "ClassRequests.h"

#include "Reports.h"

// Completes the request with all of the data, or fails when they exceed the caller's buffer.
static NTSTATUS CompleteWithData(IRP* irp, const void* data, ULONG length) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    if (stack->Parameters.DeviceIoControl.OutputBufferLength < length) {
        return CompleteIrp(irp, STATUS_INVALID_BUFFER_SIZE, 0);
    }
    RtlCopyMemory(irp->UserBuffer, data, length);
    return CompleteIrp(irp, STATUS_SUCCESS, length);
}

static NTSTATUS GetDeviceDescriptor(const DeviceConfiguration* configuration, IRP* irp) {
    HID_DESCRIPTOR descriptor;
    RtlZeroMemory(&descriptor, sizeof(descriptor));
    descriptor.bLength = sizeof(descriptor);
    descriptor.bDescriptorType = HID_HID_DESCRIPTOR_TYPE;
    descriptor.bcdHID = 0x0111;
    descriptor.bNumDescriptors = 1;
    descriptor.DescriptorList[0].bReportType = HID_REPORT_DESCRIPTOR_TYPE;
    descriptor.DescriptorList[0].wReportLength = (USHORT)configuration->descriptorLength;
    return CompleteWithData(irp, &descriptor, sizeof(descriptor));
}

static NTSTATUS GetAttributes(const DeviceConfiguration* configuration, IRP* irp) {
    HID_DEVICE_ATTRIBUTES attributes;
    RtlZeroMemory(&attributes, sizeof(attributes));
    attributes.Size = sizeof(attributes);
    attributes.VendorID = configuration->vendorId;
    attributes.ProductID = configuration->productId;
    attributes.VersionNumber = configuration->versionNumber;
    return CompleteWithData(irp, &attributes, sizeof(attributes));
}

static NTSTATUS GetString(const DeviceConfiguration* configuration, IRP* irp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    // The low word is the string's id, the high word a language.
    const USHORT id = (USHORT)(ULONG_PTR)stack->Parameters.DeviceIoControl.Type3InputBuffer;
    const WCHAR* text;
    switch (id) {
        case WINDOWS_STRING_ID_MANUFACTURER:
        case WINE_STRING_ID_MANUFACTURER:
            text = L"VelaAgent";
            break;
        case WINDOWS_STRING_ID_PRODUCT:
        case WINE_STRING_ID_PRODUCT:
            text = configuration->productString;
            break;
        // Plug finds the HID interface of a control link by this string.
        case WINDOWS_STRING_ID_SERIAL_NUMBER:
        case WINE_STRING_ID_SERIAL_NUMBER:
            text = configuration->controlLink;
            break;
        default:
            return CompleteIrp(irp, STATUS_NOT_FOUND, 0);
    }
    return CompleteWithData(irp, text, (ULONG)((wcslen(text) + 1) * sizeof(WCHAR)));
}

static NTSTATUS TransferReport(VirtualDevice* device, IRP* irp, ULONG code) {
    const HID_XFER_PACKET* packet = irp->UserBuffer;
    NTSTATUS status = STATUS_INVALID_PARAMETER;
    if (packet == NULL) return CompleteIrp(irp, status, 0);
    switch (code) {
        case IOCTL_HID_WRITE_REPORT:
        case IOCTL_HID_SET_OUTPUT_REPORT:
            status = RecordOutput(device, packet->reportBuffer, packet->reportBufferLen);
            break;
        case IOCTL_HID_GET_FEATURE:
            status = ReadFeature(device, packet->reportBuffer, packet->reportBufferLen);
            break;
        case IOCTL_HID_SET_FEATURE:
            status = WriteFeature(device, packet->reportBuffer, packet->reportBufferLen);
            break;
    }
    return CompleteIrp(irp, status, NT_SUCCESS(status) ? packet->reportBufferLen : 0);
}

typedef struct RequestKind {
    ULONG code;
    VirtualHidRequestKind kind;
} RequestKind;

static const RequestKind requestKinds[] = {
    {IOCTL_HID_GET_DEVICE_DESCRIPTOR, VIRTUAL_HID_REQUEST_DESCRIPTOR},
    {IOCTL_HID_GET_REPORT_DESCRIPTOR, VIRTUAL_HID_REQUEST_DESCRIPTOR},
    {IOCTL_HID_GET_DEVICE_ATTRIBUTES, VIRTUAL_HID_REQUEST_ATTRIBUTES},
    {IOCTL_HID_GET_STRING, VIRTUAL_HID_REQUEST_STRING},
    {IOCTL_HID_READ_REPORT, VIRTUAL_HID_REQUEST_READ},
    {IOCTL_HID_WRITE_REPORT, VIRTUAL_HID_REQUEST_OUTPUT},
    {IOCTL_HID_SET_OUTPUT_REPORT, VIRTUAL_HID_REQUEST_OUTPUT},
    {IOCTL_HID_GET_FEATURE, VIRTUAL_HID_REQUEST_GET_FEATURE},
    {IOCTL_HID_SET_FEATURE, VIRTUAL_HID_REQUEST_SET_FEATURE},
};

static void CountRequest(VirtualDevice* device, ULONG code) {
    VirtualHidRequestKind kind = VIRTUAL_HID_REQUEST_OTHER;
    for (ULONG i = 0; i < sizeof(requestKinds) / sizeof(requestKinds[0]); ++i) {
        if (requestKinds[i].code == code) kind = requestKinds[i].kind;
    }
    InterlockedIncrement(&device->requests[kind]);
}

static NTSTATUS HandleClassRequest(VirtualDevice* device, IRP* irp) {
    const DeviceConfiguration* configuration = &device->configuration;
    const ULONG code = IoGetCurrentIrpStackLocation(irp)->Parameters.DeviceIoControl.IoControlCode;
    CountRequest(device, code);
    switch (code) {
        case IOCTL_HID_GET_DEVICE_DESCRIPTOR:
            return GetDeviceDescriptor(configuration, irp);
        case IOCTL_HID_GET_REPORT_DESCRIPTOR:
            return CompleteWithData(irp, configuration->descriptor,
                                    configuration->descriptorLength);
        case IOCTL_HID_GET_DEVICE_ATTRIBUTES:
            return GetAttributes(configuration, irp);
        case IOCTL_HID_GET_STRING:
            return GetString(configuration, irp);
        case IOCTL_HID_ACTIVATE_DEVICE:
        case IOCTL_HID_DEACTIVATE_DEVICE:
            return CompleteIrp(irp, STATUS_SUCCESS, 0);
        case IOCTL_HID_READ_REPORT:
            return QueueRead(device, irp);
        case IOCTL_HID_WRITE_REPORT:
        case IOCTL_HID_SET_OUTPUT_REPORT:
        case IOCTL_HID_GET_FEATURE:
        case IOCTL_HID_SET_FEATURE:
            return TransferReport(device, irp, code);
        default:
            return CompleteIrp(irp, STATUS_NOT_SUPPORTED, 0);
    }
}

NTSTATUS NTAPI DispatchClassRequest(DEVICE_OBJECT* functionDevice, IRP* irp) {
    VirtualDevice* device = FindByFunctionDevice(functionDevice);
    NTSTATUS status;
    if (device == NULL) return CompleteIrp(irp, STATUS_DEVICE_NOT_CONNECTED, 0);
    status = HandleClassRequest(device, irp);
    ReleaseVirtualDevice(device);
    return status;
}
