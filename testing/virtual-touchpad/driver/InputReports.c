#include "Reports.h"

// Removes the oldest input report and the oldest read from their queues, if there are both.
static IRP* MatchReadWithInput(VirtualDevice* device, Report* report) {
    IRP* irp = NULL;
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    if (device->inputCount != 0) irp = PopIrp(&device->reads);
    if (irp != NULL) {
        *report = device->inputs[device->firstInput];
        device->firstInput = (device->firstInput + 1) % MAX_QUEUED_INPUTS;
        --device->inputCount;
    }
    KeReleaseSpinLock(&device->lock, irql);
    return irp;
}

static void DeliverInputs(VirtualDevice* device) {
    Report report;
    for (IRP* irp; (irp = MatchReadWithInput(device, &report)) != NULL;) {
        const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
        if (report.length > stack->Parameters.DeviceIoControl.OutputBufferLength) {
            CompleteIrp(irp, STATUS_INVALID_BUFFER_SIZE, 0);
        } else {
            RtlCopyMemory(irp->UserBuffer, report.bytes, report.length);
            CompleteIrp(irp, STATUS_SUCCESS, report.length);
        }
    }
}

NTSTATUS QueueInput(VirtualDevice* device, const UCHAR* bytes, ULONG length) {
    KIRQL irql;
    if (length == 0 || length > VIRTUAL_HID_MAX_REPORT) return STATUS_INVALID_BUFFER_SIZE;
    KeAcquireSpinLock(&device->lock, &irql);
    if (device->inputCount == MAX_QUEUED_INPUTS) {
        device->firstInput = (device->firstInput + 1) % MAX_QUEUED_INPUTS;
        --device->inputCount;
    }
    Report* report = &device->inputs[(device->firstInput + device->inputCount) % MAX_QUEUED_INPUTS];
    report->length = length;
    RtlCopyMemory(report->bytes, bytes, length);
    ++device->inputCount;
    KeReleaseSpinLock(&device->lock, irql);
    DeliverInputs(device);
    return STATUS_SUCCESS;
}

NTSTATUS QueueRead(VirtualDevice* device, IRP* irp) {
    const NTSTATUS status = PushIrp(&device->reads, irp);
    if (status != STATUS_PENDING) return CompleteIrp(irp, status, 0);
    DeliverInputs(device);
    return status;
}
