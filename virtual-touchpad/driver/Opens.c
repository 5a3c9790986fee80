#include "Opens.h"

typedef struct Open {
    LIST_ENTRY link;
    const FILE_OBJECT* file;
    OpenMode mode;
} Open;

// In ntoskrnl, though not in its headers. The class is ObjectBasicInformation.
#define OBJECT_BASIC_INFORMATION_CLASS 0
typedef struct ObjectBasicInformation {
    ULONG attributes;
    ACCESS_MASK grantedAccess;
    ULONG reserved[12];
} ObjectBasicInformation;
NTSYSAPI NTSTATUS NTAPI ZwQueryObject(HANDLE handle, int informationClass, PVOID information,
                                      ULONG length, PULONG returned);

// A create request on Wine comes without a security context, but the driver's process holds a handle
// of the file being opened, granted what the opener asked for: a low one, as handles are reused.
static ACCESS_MASK AccessOfFile(const FILE_OBJECT* file) {
    const ULONG_PTR lastHandle = 0x4000;
    for (ULONG_PTR value = 4; value <= lastHandle; value += 4) {
        const HANDLE handle = (HANDLE)value;
        ObjectBasicInformation information;
        void* object;
        if (!NT_SUCCESS(ZwQueryObject(handle, OBJECT_BASIC_INFORMATION_CLASS, &information,
                                      sizeof(information), NULL))) {
            continue;
        }
        if (!NT_SUCCESS(ObReferenceObjectByHandle(handle, 0, NULL, KernelMode, &object, NULL))) {
            continue;
        }
        ObDereferenceObject(object);
        if (object == file) return information.grantedAccess;
    }
    return FILE_READ_DATA | FILE_WRITE_DATA;
}

OpenMode OpenModeOf(IRP* createIrp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(createIrp);
    const IO_SECURITY_CONTEXT* context = stack->Parameters.Create.SecurityContext;
    const ACCESS_MASK access =
        context != NULL ? context->DesiredAccess : AccessOfFile(stack->FileObject);
    OpenMode mode;
    mode.share = stack->Parameters.Create.ShareAccess & (FILE_SHARE_READ | FILE_SHARE_WRITE);
    mode.access = 0;
    if (access & (FILE_READ_DATA | GENERIC_READ)) mode.access |= FILE_SHARE_READ;
    if (access & (FILE_WRITE_DATA | GENERIC_WRITE)) mode.access |= FILE_SHARE_WRITE;
    return mode;
}

static BOOLEAN Conflict(OpenMode a, OpenMode b) {
    return a.access != 0 && b.access != 0 &&
           ((a.access & ~b.share) != 0 || (b.access & ~a.share) != 0);
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

void CountOpens(const VirtualDevice* device, VirtualHidState* state) {
    for (LIST_ENTRY* entry = device->opens.Flink; entry != &device->opens; entry = entry->Flink) {
        const Open* open = CONTAINING_RECORD(entry, Open, link);
        ++*(open->mode.access != 0 ? &state->readWriteOpens : &state->otherOpens);
    }
}
