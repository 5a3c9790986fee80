// A first in, first out queue of pending requests that may be cancelled at any time.
#pragma once

#include "HidMinidriver.h"

typedef struct IrpQueue {
    LIST_ENTRY irps;
    BOOLEAN closed;
    NTSTATUS closedStatus;
} IrpQueue;

// Once, before the first queue.
void InitializeIrpQueues(void);

void InitializeIrpQueue(IrpQueue* queue);
// STATUS_PENDING for a queued request. With any other status the request was cancelled already or
// the queue is closed, and it is the caller's to complete with that status, outside of its locks.
NTSTATUS PushIrp(IrpQueue* queue, IRP* irp);
// Null when the queue is empty. The request is the caller's to complete.
IRP* PopIrp(IrpQueue* queue);
ULONG CountIrps(IrpQueue* queue);

// Completes the request without a priority boost; returns `status`.
NTSTATUS CompleteIrp(IRP* irp, NTSTATUS status, ULONG_PTR information);
// Completes every queued request with `status` and refuses those pushed from now on with it, for
// good: some may be on their way already.
void CloseIrpQueue(IrpQueue* queue, NTSTATUS status);
