// One overlapped read or write that the kernel has taken, from acceptance to completion.
#pragma once

#include <memory>

#include <windows.h>

#include "testing/simulator/KernelObject.h"

namespace simulator {

class IoOperation {
 public:
    // Signals the event of the record, or the file itself when the record names none. Both are kept
    // here: the record and the handles may be anything by the time the operation ends.
    IoOperation(OVERLAPPED& overlapped, std::shared_ptr<KernelObject> signalled)
        : overlapped_(&overlapped), signalled_(std::move(signalled)) {}

    // The operation's data are in place by now. The status is written last: whoever sees it may
    // free the record at once.
    void Complete(DWORD error, DWORD bytes) const;

 private:
    OVERLAPPED* overlapped_;
    std::shared_ptr<KernelObject> signalled_;
};

void MarkPending(OVERLAPPED& overlapped);
NTSTATUS StatusIn(const OVERLAPPED& overlapped);

}  // namespace simulator
