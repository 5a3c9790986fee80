#include "Opens.h"

typedef struct Open {
    LIST_ENTRY link;
    const FILE_OBJECT* file;
    OpenMode mode;
} Open;

// ntoskrnl exports ZwQueryObject, but its headers do not declare it. The class is
// ObjectBasicInformation.
#define OBJECT_BASIC_INFORMATION_CLASS 0
typedef struct ObjectBasicInformation {
    ULONG attributes;
    ACCESS_MASK grantedAccess;
    ULONG reserved[12];
} ObjectBasicInformation;
NTSYSAPI NTSTATUS NTAPI ZwQueryObject(HANDLE handle, int informationClass, PVOID information,
                                      ULONG length, PULONG returned);

static HANDLE driverProcess;

void InitializeOpens(void) { driverProcess = PsGetCurrentProcessId(); }

static BOOLEAN GrantedThrough(LONG_PTR handle, const FILE_OBJECT* file, ACCESS_MASK* access) {
    // CreateFile always requests these. Most other handles lack one and are skipped cheaply.
    const ACCESS_MASK always = SYNCHRONIZE | FILE_READ_ATTRIBUTES;
    ObjectBasicInformation information;
    void* object;
    if (!NT_SUCCESS(ZwQueryObject((HANDLE)handle, OBJECT_BASIC_INFORMATION_CLASS, &information,
                                  sizeof(information), NULL)) ||
        (information.grantedAccess & always) != always ||
        !NT_SUCCESS(
            ObReferenceObjectByHandle((HANDLE)handle, 0, NULL, KernelMode, &object, NULL))) {
        return FALSE;
    }
    ObDereferenceObject(object);
    *access = information.grantedAccess;
    return object == file;
}

// A create request on Wine has no security context, but the driver's process has a handle of the
// file being opened, with the access that the opener requested. Its value is the lowest free one,
// so mostly the same as the last time; Wine leaves a dozen other handles open at each plugging in.
static ACCESS_MASK AccessOfFile(const FILE_OBJECT* file) {
    static LONG_PTR lastFound = 4;
    const LONG_PTR farthest = 0x20000;
    const LONG_PTR start = lastFound;
    ACCESS_MASK access;
    for (LONG_PTR distance = 0; distance <= farthest; distance += 4) {
        const LONG_PTR candidates[] = {start - distance, start + distance};
        for (ULONG i = 0; i < 2; ++i) {
            if (candidates[i] <= 0 || !GrantedThrough(candidates[i], file, &access)) continue;
            lastFound = candidates[i];
            return access;
        }
    }
    return FILE_READ_DATA | FILE_WRITE_DATA;
}

OpenMode OpenModeOf(IRP* createIrp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(createIrp);
    const IO_SECURITY_CONTEXT* context = stack->Parameters.Create.SecurityContext;
    OpenMode mode = {0,
                     stack->Parameters.Create.ShareAccess & (FILE_SHARE_READ | FILE_SHARE_WRITE)};
    ACCESS_MASK access = 0;
    // At a device's first input report Wine's raw input opens every HID device with read and write
    // access, from the process that runs the drivers, and keeps it open. This is not a host.
    if (PsGetCurrentProcessId() == driverProcess) return mode;
    access = context != NULL ? context->DesiredAccess : AccessOfFile(stack->FileObject);
    if (access & (FILE_READ_DATA | GENERIC_READ)) mode.access |= FILE_SHARE_READ;
    if (access & (FILE_WRITE_DATA | GENERIC_WRITE)) mode.access |= FILE_SHARE_WRITE;
    return mode;
}

static BOOLEAN Conflict(OpenMode a, OpenMode b) {
    return a.access != 0 && b.access != 0 &&
           ((a.access & ~b.share) != 0 || (b.access & ~a.share) != 0);
}

// The caller holds the lock.
static BOOLEAN TakeAllowedOpen(VirtualDevice* device) {
    if (device->allowedOpens == 0) return FALSE;
    if (device->allowedOpens != VIRTUAL_HID_UNLIMITED_OPENS) --device->allowedOpens;
    return TRUE;
}

NTSTATUS AddOpen(VirtualDevice* device, const FILE_OBJECT* file, OpenMode mode) {
    NTSTATUS status = STATUS_SUCCESS;
    KIRQL irql;
    Open* added = ExAllocatePoolWithTag(NonPagedPool, sizeof(*added), POOL_TAG);
    if (added == NULL) return STATUS_INSUFFICIENT_RESOURCES;
    added->file = file;
    added->mode = mode;
    KeAcquireSpinLock(&device->lock, &irql);
    for (LIST_ENTRY* entry = device->opens.Flink; entry != &device->opens; entry = entry->Flink) {
        const Open* open = CONTAINING_RECORD(entry, Open, link);
        if (Conflict(open->mode, mode)) status = STATUS_SHARING_VIOLATION;
    }
    if (NT_SUCCESS(status) && !TakeAllowedOpen(device)) status = STATUS_SHARING_VIOLATION;
    if (NT_SUCCESS(status)) InsertTailList(&device->opens, &added->link);
    KeReleaseSpinLock(&device->lock, irql);
    if (!NT_SUCCESS(status)) ExFreePoolWithTag(added, POOL_TAG);
    return status;
}

// The caller holds the lock.
static Open* FindOpen(VirtualDevice* device, const FILE_OBJECT* file) {
    for (LIST_ENTRY* entry = device->opens.Flink; entry != &device->opens; entry = entry->Flink) {
        Open* open = CONTAINING_RECORD(entry, Open, link);
        if (open->file == file) return open;
    }
    return NULL;
}

BOOLEAN IsOpen(VirtualDevice* device, const FILE_OBJECT* file) {
    BOOLEAN found;
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    found = FindOpen(device, file) != NULL;
    KeReleaseSpinLock(&device->lock, irql);
    return found;
}

void RemoveOpen(VirtualDevice* device, const FILE_OBJECT* file) {
    Open* removed;
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    removed = FindOpen(device, file);
    if (removed != NULL) RemoveEntryList(&removed->link);
    KeReleaseSpinLock(&device->lock, irql);
    if (removed != NULL) ExFreePoolWithTag(removed, POOL_TAG);
}

void LimitOpens(VirtualDevice* device, ULONG allowed) {
    KIRQL irql;
    KeAcquireSpinLock(&device->lock, &irql);
    device->allowedOpens = allowed;
    KeReleaseSpinLock(&device->lock, irql);
}

void CountOpens(const VirtualDevice* device, VirtualHidState* state) {
    for (LIST_ENTRY* entry = device->opens.Flink; entry != &device->opens; entry = entry->Flink) {
        const Open* open = CONTAINING_RECORD(entry, Open, link);
        ++*(open->mode.access != 0 ? &state->readWriteOpens : &state->otherOpens);
    }
}
