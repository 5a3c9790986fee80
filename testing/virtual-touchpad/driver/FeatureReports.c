#include "Reports.h"

// Returns the stored report with this id, a free place for it, or null. The caller holds the lock.
static Report* FindFeature(VirtualDevice* device, UCHAR id) {
    for (ULONG i = 0; i < MAX_FEATURES; ++i) {
        Report* report = &device->features[i];
        if (report->length == 0 || report->bytes[0] == id) return report;
    }
    return NULL;
}

static NTSTATUS TakeNextFeatureStatus(VirtualDevice* device) {
    const NTSTATUS status = device->nextFeatureStatus;
    device->nextFeatureStatus = STATUS_SUCCESS;
    return status;
}

static NTSTATUS Store(VirtualDevice* device, const UCHAR* bytes, ULONG length) {
    Report* report = FindFeature(device, bytes[0]);
    if (report == NULL) return STATUS_INSUFFICIENT_RESOURCES;
    RtlCopyMemory(report->bytes, bytes, length);
    report->length = length;
    return STATUS_SUCCESS;
}

static BOOLEAN IsReportLength(ULONG length) {
    return length != 0 && length <= VIRTUAL_HID_MAX_REPORT;
}

NTSTATUS ReadFeature(VirtualDevice* device, UCHAR* bytes, ULONG length) {
    NTSTATUS status;
    KIRQL irql;
    if (!IsReportLength(length)) return STATUS_INVALID_BUFFER_SIZE;
    KeAcquireSpinLock(&device->lock, &irql);
    status = TakeNextFeatureStatus(device);
    if (status == STATUS_SUCCESS) {
        const Report* report = FindFeature(device, bytes[0]);
        const ULONG stored = report != NULL ? min(report->length, length) : 0;
        if (stored != 0) RtlCopyMemory(bytes, report->bytes, stored);
        // Byte 0 keeps the report id when nothing is stored.
        if (stored < length) RtlZeroMemory(bytes + max(stored, 1), length - max(stored, 1));
        ++device->featureGetCount;
    }
    KeReleaseSpinLock(&device->lock, irql);
    return status;
}

NTSTATUS WriteFeature(VirtualDevice* device, const UCHAR* bytes, ULONG length) {
    NTSTATUS status;
    KIRQL irql;
    if (!IsReportLength(length)) return STATUS_INVALID_BUFFER_SIZE;
    KeAcquireSpinLock(&device->lock, &irql);
    status = TakeNextFeatureStatus(device);
    if (status == STATUS_SUCCESS) status = Store(device, bytes, length);
    if (status == STATUS_SUCCESS) ++device->featureSetCount;
    KeReleaseSpinLock(&device->lock, irql);
    return status;
}

NTSTATUS GetStoredFeature(VirtualDevice* device, UCHAR id, UCHAR* bytes, ULONG room,
                          ULONG* length) {
    NTSTATUS status = STATUS_SUCCESS;
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    const Report* report = FindFeature(device, id);
    if (report == NULL || report->length == 0) {
        status = STATUS_NOT_FOUND;
    } else if (report->length > room) {
        status = STATUS_BUFFER_TOO_SMALL;
    } else {
        *length = report->length;
        RtlCopyMemory(bytes, report->bytes, report->length);
    }
    KeReleaseSpinLock(&device->lock, irql);
    return status;
}

NTSTATUS StoreFeature(VirtualDevice* device, const UCHAR* bytes, ULONG length) {
    NTSTATUS status;
    KIRQL irql;
    if (!IsReportLength(length)) return STATUS_INVALID_BUFFER_SIZE;
    KeAcquireSpinLock(&device->lock, &irql);
    status = Store(device, bytes, length);
    KeReleaseSpinLock(&device->lock, irql);
    return status;
}
