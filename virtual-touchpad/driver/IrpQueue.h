// A first in, first out queue of pending requests that may be cancelled at any time.
#pragma once

#include "HidMinidriver.h"

typedef struct IrpQueue {
    LIST_ENTRY irps;
} IrpQueue;

// Once, before the first queue.
void InitializeIrpQueues(void);

void InitializeIrpQueue(IrpQueue* queue);
// Returns what the dispatch routine has to return: STATUS_PENDING, or STATUS_CANCELLED for a
// request that was cancelled already and has been completed.
NTSTATUS PushIrp(IrpQueue* queue, IRP* irp);
// Null when the queue is empty. The request is the caller's to complete.
IRP* PopIrp(IrpQueue* queue);
ULONG CountIrps(IrpQueue* queue);

// Completes the request without a priority boost; returns `status`.
NTSTATUS CompleteIrp(IRP* irp, NTSTATUS status, ULONG_PTR information);
// Completes every queued request with `status`.
void CompleteAllIrps(IrpQueue* queue, NTSTATUS status);
