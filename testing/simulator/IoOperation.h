// One overlapped read or write, from its acceptance by the kernel to its completion.
#pragma once

#include <memory>

#include <windows.h>

#include "testing/simulator/KernelObject.h"

namespace simulator {

class IoOperation {
 public:
    // `signalled` is the event of the record, or the file itself when the record names none. The
    // operation keeps it: the handles may be closed and the record changed before it ends.
    IoOperation(OVERLAPPED& overlapped, std::shared_ptr<KernelObject> signalled)
        : overlapped_(&overlapped), signalled_(std::move(signalled)) {}

    // The caller has already copied the data. The status is written last: a thread that reads it
    // may free the record at once.
    void Complete(DWORD error, DWORD bytes) const;

 private:
    OVERLAPPED* overlapped_;
    std::shared_ptr<KernelObject> signalled_;
};

void MarkPending(OVERLAPPED& overlapped);
NTSTATUS StatusIn(const OVERLAPPED& overlapped);

}  // namespace simulator
