#include "VirtualDevice.h"

static KSPIN_LOCK devicesLock;  // guards: the list, each device's collections
static LIST_ENTRY devices;

#define MAX_RETIRED 64
static DEVICE_OBJECT* retired[MAX_RETIRED];
static LONG retiredCount;

typedef BOOLEAN (*Matches)(const VirtualDevice* device, const DEVICE_OBJECT* object);

void InitializeVirtualDevices(void) {
    KeInitializeSpinLock(&devicesLock);
    InitializeListHead(&devices);
}

VirtualDevice* CreateVirtualDevice(DEVICE_OBJECT* functionDevice) {
    KIRQL irql;
    VirtualDevice* device = ExAllocatePoolWithTag(NonPagedPool, sizeof(*device), POOL_TAG);
    if (device == NULL) return NULL;
    RtlZeroMemory(device, sizeof(*device));
    device->references = 1;
    device->functionDevice = functionDevice;
    InitializeIrpQueue(&device->reads);
    InitializeIrpQueue(&device->heldWrites);
    KeInitializeSpinLock(&device->lock);
    InitializeListHead(&device->opens);
    device->allowedOpens = VIRTUAL_HID_UNLIMITED_OPENS;
    KeAcquireSpinLock(&devicesLock, &irql);
    InsertTailList(&devices, &device->link);
    KeReleaseSpinLock(&devicesLock, irql);
    return device;
}

static VirtualDevice* Find(Matches matches, const DEVICE_OBJECT* object) {
    VirtualDevice* found = NULL;
    KIRQL irql;
    KeAcquireSpinLock(&devicesLock, &irql);
    for (LIST_ENTRY* entry = devices.Flink; entry != &devices && !found; entry = entry->Flink) {
        VirtualDevice* device = CONTAINING_RECORD(entry, VirtualDevice, link);
        if (matches(device, object)) found = device;
    }
    if (found != NULL) InterlockedIncrement(&found->references);
    KeReleaseSpinLock(&devicesLock, irql);
    return found;
}

static BOOLEAN IsFunctionDevice(const VirtualDevice* device, const DEVICE_OBJECT* object) {
    return device->functionDevice == object;
}

static BOOLEAN IsCollection(const VirtualDevice* device, const DEVICE_OBJECT* object) {
    for (ULONG i = 0; i < MAX_COLLECTIONS; ++i) {
        if (device->collections[i] == object) return TRUE;
    }
    return FALSE;
}

static BOOLEAN IsControlDevice(const VirtualDevice* device, const DEVICE_OBJECT* object) {
    return device->controlDevice == object;
}

VirtualDevice* FindByFunctionDevice(const DEVICE_OBJECT* device) {
    return Find(IsFunctionDevice, device);
}

VirtualDevice* FindByCollection(const DEVICE_OBJECT* device) { return Find(IsCollection, device); }

VirtualDevice* FindByControlDevice(const DEVICE_OBJECT* device) {
    return Find(IsControlDevice, device);
}

void ReleaseVirtualDevice(VirtualDevice* device) {
    if (InterlockedDecrement(&device->references) != 0) return;
    for (ULONG i = 0; i < MAX_COLLECTIONS; ++i) {
        if (device->collections[i] != NULL) RetireDeviceObject(device->collections[i]);
    }
    while (!IsListEmpty(&device->opens))
        ExFreePoolWithTag(RemoveHeadList(&device->opens), POOL_TAG);
    ExFreePoolWithTag(device, POOL_TAG);
}

void ForgetVirtualDevice(VirtualDevice* device) {
    KIRQL irql;
    KeAcquireSpinLock(&devicesLock, &irql);
    RemoveEntryList(&device->link);
    KeReleaseSpinLock(&devicesLock, irql);
    ReleaseVirtualDevice(device);
}

void SetCollections(VirtualDevice* device, const DEVICE_RELATIONS* relations) {
    DEVICE_OBJECT* previous[MAX_COLLECTIONS];
    KIRQL irql;
    KeAcquireSpinLock(&devicesLock, &irql);
    for (ULONG i = 0; i < MAX_COLLECTIONS; ++i) {
        DEVICE_OBJECT* collection = i < relations->Count ? relations->Objects[i] : NULL;
        previous[i] = collection != device->collections[i] ? device->collections[i] : NULL;
        if (collection == device->collections[i]) continue;
        if (collection != NULL) ObReferenceObject(collection);
        device->collections[i] = collection;
    }
    KeReleaseSpinLock(&devicesLock, irql);
    for (ULONG i = 0; i < MAX_COLLECTIONS; ++i) {
        if (previous[i] != NULL) RetireDeviceObject(previous[i]);
    }
}

void RetireDeviceObject(DEVICE_OBJECT* object) {
    const ULONG place = (ULONG)InterlockedIncrement(&retiredCount) % MAX_RETIRED;
    DEVICE_OBJECT* oldest = InterlockedExchangePointer((PVOID*)&retired[place], object);
    if (oldest != NULL) ObDereferenceObject(oldest);
}
