// Owns overlapped reads and writes until the kernel is done with them.
//
// No operation is ever cancelled: a write may be given up after its time limit, and a read may
// still be pending when its thread ends. The kernel then still holds the OVERLAPPED record and the
// bytes, and writes to them when the operation ends, which may be after the device handle was
// closed.
#pragma once

#include <memory>
#include <vector>

#include "platform/Mutex.h"
#include "touchpad/OverlappedOperation.h"

namespace vela {

// Hands operations out and takes them back, whether or not the kernel is done with them. Any thread
// may call any operation.
class OverlappedOperations {
 public:
    struct Return {
        OverlappedOperations* operations;
        void operator()(OverlappedOperation* operation) const { operations->TakeBack(operation); }
    };
    using Pointer = std::unique_ptr<OverlappedOperation, Return>;

    OverlappedOperations() = default;
    // Leaves what the kernel still holds allocated, as the process is ending.
    ~OverlappedOperations();
    OverlappedOperations(const OverlappedOperations&) = delete;
    OverlappedOperations& operator=(const OverlappedOperations&) = delete;

    Pointer Make(std::vector<BYTE> bytes);
    // Frees the operations that were given up and have ended since.
    void FreeEnded();

 private:
    void TakeBack(OverlappedOperation* operation);

    Mutex mutex_;  // guards: givenUp_
    std::vector<std::unique_ptr<OverlappedOperation>> givenUp_ VELA_GUARDED_BY(mutex_);
};

}  // namespace vela
