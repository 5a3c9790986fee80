#include "IrpQueue.h"

// All queues share one lock, so that a cancel routine needs no queue, which may be freed.
static KSPIN_LOCK queuesLock;

void InitializeIrpQueues(void) { KeInitializeSpinLock(&queuesLock); }

void InitializeIrpQueue(IrpQueue* queue) {
    InitializeListHead(&queue->irps);
    queue->closed = FALSE;
    queue->closedStatus = STATUS_SUCCESS;
}

NTSTATUS CompleteIrp(IRP* irp, NTSTATUS status, ULONG_PTR information) {
    irp->IoStatus.Status = status;
    irp->IoStatus.Information = information;
    IoCompleteRequest(irp, IO_NO_INCREMENT);
    return status;
}

static VOID NTAPI CancelQueuedIrp(DEVICE_OBJECT* device, IRP* irp) {
    KIRQL irql;
    UNREFERENCED_PARAMETER(device);
    IoReleaseCancelSpinLock(irp->CancelIrql);
    KeAcquireSpinLock(&queuesLock, &irql);
    RemoveEntryList(&irp->Tail.Overlay.ListEntry);
    KeReleaseSpinLock(&queuesLock, irql);
    CompleteIrp(irp, STATUS_CANCELLED, 0);
}

NTSTATUS PushIrp(IrpQueue* queue, IRP* irp) {
    KIRQL irql;
    KeAcquireSpinLock(&queuesLock, &irql);
    if (queue->closed) {
        KeReleaseSpinLock(&queuesLock, irql);
        return queue->closedStatus;
    }
    IoSetCancelRoutine(irp, CancelQueuedIrp);
    // A request cancelled before the routine was set is completed by the caller. If the routine is
    // already reset, it is running: it waits for the lock and then unlinks the request from the
    // queue.
    if (irp->Cancel && IoSetCancelRoutine(irp, NULL) != NULL) {
        KeReleaseSpinLock(&queuesLock, irql);
        return STATUS_CANCELLED;
    }
    IoMarkIrpPending(irp);
    InsertTailList(&queue->irps, &irp->Tail.Overlay.ListEntry);
    KeReleaseSpinLock(&queuesLock, irql);
    return STATUS_PENDING;
}

IRP* PopIrp(IrpQueue* queue) {
    IRP* found = NULL;
    KIRQL irql;
    KeAcquireSpinLock(&queuesLock, &irql);
    while (found == NULL && !IsListEmpty(&queue->irps)) {
        LIST_ENTRY* entry = RemoveHeadList(&queue->irps);
        IRP* irp = CONTAINING_RECORD(entry, IRP, Tail.Overlay.ListEntry);
        if (IoSetCancelRoutine(irp, NULL) != NULL) {
            found = irp;
        } else {
            // The cancel routine of this request waits for the lock and will unlink it again.
            InitializeListHead(entry);
        }
    }
    KeReleaseSpinLock(&queuesLock, irql);
    return found;
}

ULONG CountIrps(IrpQueue* queue) {
    ULONG count = 0;
    KIRQL irql;
    KeAcquireSpinLock(&queuesLock, &irql);
    for (LIST_ENTRY* entry = queue->irps.Flink; entry != &queue->irps; entry = entry->Flink)
        ++count;
    KeReleaseSpinLock(&queuesLock, irql);
    return count;
}

void CloseIrpQueue(IrpQueue* queue, NTSTATUS status) {
    KIRQL irql;
    KeAcquireSpinLock(&queuesLock, &irql);
    queue->closed = TRUE;
    queue->closedStatus = status;
    KeReleaseSpinLock(&queuesLock, irql);
    // No request follows these. They are completed without the lock, as their senders may send
    // more.
    for (IRP* irp = PopIrp(queue); irp != NULL; irp = PopIrp(queue)) CompleteIrp(irp, status, 0);
}
