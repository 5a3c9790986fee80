#include "Reports.h"

NTSTATUS RecordOutput(VirtualDevice* device, const UCHAR* bytes, ULONG length) {
    NTSTATUS status;
    KIRQL irql;
    if (length > VIRTUAL_HID_MAX_REPORT) return STATUS_INVALID_BUFFER_SIZE;
    KeAcquireSpinLock(&device->lock, &irql);
    status = device->nextWriteStatus;
    device->nextWriteStatus = STATUS_SUCCESS;
    if (status == STATUS_SUCCESS) {
        const ULONGLONG sequence = ++device->outputCount;
        VirtualHidOutput* output = &device->outputs[sequence % VIRTUAL_HID_OUTPUT_HISTORY];
        output->sequence = sequence;
        output->counter = (ULONGLONG)KeQueryPerformanceCounter(NULL).QuadPart;
        output->length = length;
        RtlCopyMemory(output->bytes, bytes, length);
    }
    KeReleaseSpinLock(&device->lock, irql);
    return status;
}

ULONG CopyOutputsSince(VirtualDevice* device, ULONGLONG sequence, VirtualHidOutput* outputs,
                       ULONG room) {
    ULONG copied = 0;
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    const ULONGLONG last = device->outputCount;
    if (last > VIRTUAL_HID_OUTPUT_HISTORY && sequence < last - VIRTUAL_HID_OUTPUT_HISTORY) {
        sequence = last - VIRTUAL_HID_OUTPUT_HISTORY;
    }
    while (sequence < last && copied < room) {
        ++sequence;
        outputs[copied++] = device->outputs[sequence % VIRTUAL_HID_OUTPUT_HISTORY];
    }
    KeReleaseSpinLock(&device->lock, irql);
    return copied;
}
