// A first in, first out queue of pending requests that may be cancelled at any time.
#pragma once

#include "HidMinidriver.h"

typedef struct IrpQueue {
    LIST_ENTRY irps;
    BOOLEAN closed;
    NTSTATUS closedStatus;
} IrpQueue;

// Called once, before the first queue is initialized.
void InitializeIrpQueues(void);

void InitializeIrpQueue(IrpQueue* queue);
// Returns STATUS_PENDING for a queued request. With any other status the request is cancelled or
// the queue is closed, and the caller completes the request with that status, without holding a
// lock.
NTSTATUS PushIrp(IrpQueue* queue, IRP* irp);
// Returns null when the queue is empty. The caller completes the request.
IRP* PopIrp(IrpQueue* queue);
ULONG CountIrps(IrpQueue* queue);

// Completes the request without a priority boost; returns `status`.
NTSTATUS CompleteIrp(IRP* irp, NTSTATUS status, ULONG_PTR information);
// Completes every queued request with `status` and makes PushIrp fail with it from now on, as more
// requests may be under way.
void CloseIrpQueue(IrpQueue* queue, NTSTATUS status);
