#include "ClassRequests.h"

#include "Reports.h"

// Answers with as many bytes as the caller has room for, never with a part.
static NTSTATUS Answer(IRP* irp, const void* data, ULONG length) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    if (stack->Parameters.DeviceIoControl.OutputBufferLength < length) {
        return CompleteIrp(irp, STATUS_INVALID_BUFFER_SIZE, 0);
    }
    RtlCopyMemory(irp->UserBuffer, data, length);
    return CompleteIrp(irp, STATUS_SUCCESS, length);
}

static NTSTATUS AnswerDeviceDescriptor(const DeviceConfiguration* configuration, IRP* irp) {
    HID_DESCRIPTOR descriptor;
    RtlZeroMemory(&descriptor, sizeof(descriptor));
    descriptor.bLength = sizeof(descriptor);
    descriptor.bDescriptorType = HID_HID_DESCRIPTOR_TYPE;
    descriptor.bcdHID = 0x0111;
    descriptor.bNumDescriptors = 1;
    descriptor.DescriptorList[0].bReportType = HID_REPORT_DESCRIPTOR_TYPE;
    descriptor.DescriptorList[0].wReportLength = (USHORT)configuration->descriptorLength;
    return Answer(irp, &descriptor, sizeof(descriptor));
}

static NTSTATUS AnswerAttributes(const DeviceConfiguration* configuration, IRP* irp) {
    HID_DEVICE_ATTRIBUTES attributes;
    RtlZeroMemory(&attributes, sizeof(attributes));
    attributes.Size = sizeof(attributes);
    attributes.VendorID = configuration->vendorId;
    attributes.ProductID = configuration->productId;
    attributes.VersionNumber = configuration->versionNumber;
    return Answer(irp, &attributes, sizeof(attributes));
}

static NTSTATUS AnswerString(const DeviceConfiguration* configuration, IRP* irp) {
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
        // Tells which HID interface belongs to which control link.
        case WINDOWS_STRING_ID_SERIAL_NUMBER:
        case WINE_STRING_ID_SERIAL_NUMBER:
            text = configuration->controlLink;
            break;
        default:
            return CompleteIrp(irp, STATUS_NOT_FOUND, 0);
    }
    return Answer(irp, text, (ULONG)((wcslen(text) + 1) * sizeof(WCHAR)));
}

static NTSTATUS AnswerReport(VirtualDevice* device, IRP* irp, ULONG code) {
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

static NTSTATUS AnswerClassRequest(VirtualDevice* device, IRP* irp) {
    const DeviceConfiguration* configuration = &device->configuration;
    const ULONG code = IoGetCurrentIrpStackLocation(irp)->Parameters.DeviceIoControl.IoControlCode;
    switch (code) {
        case IOCTL_HID_GET_DEVICE_DESCRIPTOR:
            return AnswerDeviceDescriptor(configuration, irp);
        case IOCTL_HID_GET_REPORT_DESCRIPTOR:
            return Answer(irp, configuration->descriptor, configuration->descriptorLength);
        case IOCTL_HID_GET_DEVICE_ATTRIBUTES:
            return AnswerAttributes(configuration, irp);
        case IOCTL_HID_GET_STRING:
            return AnswerString(configuration, irp);
        case IOCTL_HID_ACTIVATE_DEVICE:
        case IOCTL_HID_DEACTIVATE_DEVICE:
            return CompleteIrp(irp, STATUS_SUCCESS, 0);
        case IOCTL_HID_READ_REPORT:
            return QueueRead(device, irp);
        case IOCTL_HID_WRITE_REPORT:
        case IOCTL_HID_SET_OUTPUT_REPORT:
        case IOCTL_HID_GET_FEATURE:
        case IOCTL_HID_SET_FEATURE:
            return AnswerReport(device, irp, code);
        default:
            return CompleteIrp(irp, STATUS_NOT_SUPPORTED, 0);
    }
}

NTSTATUS NTAPI DispatchClassRequest(DEVICE_OBJECT* functionDevice, IRP* irp) {
    VirtualDevice* device = FindByFunctionDevice(functionDevice);
    NTSTATUS status;
    if (device == NULL) return CompleteIrp(irp, STATUS_DEVICE_NOT_CONNECTED, 0);
    status = AnswerClassRequest(device, irp);
    ReleaseVirtualDevice(device);
    return status;
}
