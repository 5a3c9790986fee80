#include "HostRequests.h"

#include "ControlDevice.h"
#include "Opens.h"

static PDRIVER_DISPATCH classDispatch[IRP_MJ_MAXIMUM_FUNCTION + 1];

static NTSTATUS PassToClassDriver(DEVICE_OBJECT* object, IRP* irp) {
    return classDispatch[IoGetCurrentIrpStackLocation(irp)->MajorFunction](object, irp);
}

static NTSTATUS Create(VirtualDevice* device, DEVICE_OBJECT* collection, IRP* irp) {
    const FILE_OBJECT* file = IoGetCurrentIrpStackLocation(irp)->FileObject;
    NTSTATUS status = AddOpen(device, file, OpenModeOf(irp));
    if (!NT_SUCCESS(status)) return CompleteIrp(irp, status, 0);
    status = PassToClassDriver(collection, irp);
    if (!NT_SUCCESS(status)) RemoveOpen(device, file);
    return status;
}

// Wine's HidP_SetUsages and HidP_SetUsageValue leave the report id of a zeroed report at 0, and its
// class driver then refuses the write. Windows has set the id by now.
static void FillOutputId(const DeviceConfiguration* configuration, IRP* irp) {
    const ULONG length = IoGetCurrentIrpStackLocation(irp)->Parameters.Write.Length;
    UCHAR* report = irp->UserBuffer;
    // A driver must not access the user's address of a request with an MDL, as on Windows.
    if (!configuration->fillsOutputId || irp->MdlAddress != NULL || report == NULL) return;
    if (length == 0 || report[0] != 0) return;
    const BOOLEAN isSet =
        configuration->outputIdOffset < length && report[configuration->outputIdOffset] != 0;
    report[0] = isSet ? configuration->outputIdIfSet : configuration->outputIdIfClear;
}

static NTSTATUS Write(VirtualDevice* device, DEVICE_OBJECT* collection, IRP* irp) {
    NTSTATUS status = STATUS_SUCCESS;
    BOOLEAN held;
    KIRQL irql;
    FillOutputId(&device->configuration, irp);
    KeAcquireSpinLock(&device->lock, &irql);
    held = device->holdsWrites;
    if (held) status = PushIrp(&device->heldWrites, irp);
    KeReleaseSpinLock(&device->lock, irql);
    if (!held) return PassToClassDriver(collection, irp);
    return status == STATUS_PENDING ? status : CompleteIrp(irp, status, 0);
}

void HoldWrites(VirtualDevice* device, BOOLEAN hold) {
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    device->holdsWrites = hold;
    KeReleaseSpinLock(&device->lock, irql);
    if (hold) return;
    for (IRP* irp = PopIrp(&device->heldWrites); irp != NULL; irp = PopIrp(&device->heldWrites)) {
        PassToClassDriver(IoGetCurrentIrpStackLocation(irp)->DeviceObject, irp);
    }
}

static NTSTATUS HostRequest(VirtualDevice* device, DEVICE_OBJECT* collection, IRP* irp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    const UCHAR major = stack->MajorFunction;
    if (major == IRP_MJ_CREATE) return Create(device, collection, irp);
    // Wine's CreateFile succeeds even when the driver fails the create request. So every use of a
    // refused handle fails here; the class driver has never received its create request.
    if (stack->FileObject != NULL && !IsOpen(device, stack->FileObject)) {
        return CompleteIrp(irp, major == IRP_MJ_CLOSE ? STATUS_SUCCESS : STATUS_SHARING_VIOLATION,
                           0);
    }
    switch (major) {
        case IRP_MJ_WRITE:
            return Write(device, collection, irp);
        case IRP_MJ_CLOSE:
            RemoveOpen(device, stack->FileObject);
            return PassToClassDriver(collection, irp);
        default:
            return PassToClassDriver(collection, irp);
    }
}

static NTSTATUS NTAPI Dispatch(DEVICE_OBJECT* object, IRP* irp) {
    NTSTATUS status;
    VirtualDevice* device;
    if (IsControlObject(object)) {
        device = FindByControlDevice(object);
        // The device was removed while the request was under way. The class driver would treat the
        // object as one of its own devices and spin on memory that is no lock.
        if (device == NULL) return CompleteIrp(irp, STATUS_DEVICE_NOT_CONNECTED, 0);
        status = DispatchControlRequest(device, irp);
    } else if ((device = FindByCollection(object)) != NULL) {
        status = HostRequest(device, object, irp);
    } else {
        return PassToClassDriver(object, irp);
    }
    ReleaseVirtualDevice(device);
    return status;
}

// Wine starts a device's collections, which makes their interfaces appear, and only afterwards
// records their owner; the interfaces of a device that is removed in between stay for ever. Wine
// processes one invalidation after the other, so the driver requests a second enumeration: when it
// arrives, the owner is recorded.
static void CountEnumeration(VirtualDevice* device, DEVICE_OBJECT* physicalDevice) {
    BOOLEAN isFirst;
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    isFirst = device->enumerations++ == 0;
    KeReleaseSpinLock(&device->lock, irql);
    if (isFirst) IoInvalidateDeviceRelations(physicalDevice, BusRelations);
}

// The class driver returns the collections of a device as its bus relations.
static NTSTATUS NTAPI DispatchPnp(DEVICE_OBJECT* object, IRP* irp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    const BOOLEAN queriesCollections = stack->MinorFunction == IRP_MN_QUERY_DEVICE_RELATIONS &&
                                       stack->Parameters.QueryDeviceRelations.Type == BusRelations;
    // The request may be freed when the class driver returns; its sender's status block is not.
    const IO_STATUS_BLOCK* result = irp->UserIosb;
    VirtualDevice* device = queriesCollections ? FindByFunctionDevice(object) : NULL;
    const NTSTATUS status = PassToClassDriver(object, irp);
    if (device == NULL) return status;
    if (status == STATUS_SUCCESS && result != NULL && result->Information != 0) {
        const DEVICE_RELATIONS* collections = (const DEVICE_RELATIONS*)result->Information;
        const HID_DEVICE_EXTENSION* extension = object->DeviceExtension;
        SetCollections(device, collections);
        if (collections->Count != 0) CountEnumeration(device, extension->PhysicalDeviceObject);
    }
    ReleaseVirtualDevice(device);
    return status;
}

void WrapClassDriver(DRIVER_OBJECT* driver) {
    static const UCHAR wrapped[] = {IRP_MJ_CREATE, IRP_MJ_READ, IRP_MJ_WRITE, IRP_MJ_CLOSE,
                                    IRP_MJ_DEVICE_CONTROL};
    RtlCopyMemory(classDispatch, driver->MajorFunction, sizeof(classDispatch));
    for (ULONG i = 0; i < sizeof(wrapped); ++i) driver->MajorFunction[wrapped[i]] = Dispatch;
    driver->MajorFunction[IRP_MJ_PNP] = DispatchPnp;
}
