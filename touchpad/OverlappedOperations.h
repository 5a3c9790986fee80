// Where overlapped reads and writes live until the kernel is done with them.
//
// Nothing here is ever cancelled: a write may be given up after its time limit, and a read may
// still be pending when its thread leaves. The kernel then still holds the OVERLAPPED record and
// the bytes, and writes to them when the operation ends, which may be after the device handle was
// closed.
#pragma once

#include <memory>
#include <vector>

#include "platform/Mutex.h"
#include "touchpad/OverlappedOperation.h"

namespace vela {

// Hands operations out and takes them back from their owners, who need not care how theirs ended.
// Any thread.
class OverlappedOperations {
 public:
    struct Return {
        OverlappedOperations* operations;
        void operator()(OverlappedOperation* operation) const { operations->TakeBack(operation); }
    };
    using Pointer = std::unique_ptr<OverlappedOperation, Return>;

    OverlappedOperations() = default;
    // What the kernel still holds stays allocated: the process is on its way out.
    ~OverlappedOperations();
    OverlappedOperations(const OverlappedOperations&) = delete;
    OverlappedOperations& operator=(const OverlappedOperations&) = delete;

    Pointer Make(std::vector<BYTE> bytes);
    // Frees those that were given up and have ended since.
    void FreeEnded();

 private:
    void TakeBack(OverlappedOperation* operation);

    Mutex mutex_;  // guards: givenUp_
    std::vector<std::unique_ptr<OverlappedOperation>> givenUp_ VELA_GUARDED_BY(mutex_);
};

}  // namespace vela
