// Overlapped reads and writes, and where they live until the kernel is done with them.
//
// Nothing here is ever cancelled: a write may be given up after its time limit, and a read may
// still be pending when its thread leaves. The kernel then still holds the OVERLAPPED record and
// the bytes, and writes to them when the operation ends, at the latest when the device handle is
// closed.
#pragma once

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include <windows.h>

namespace vela {

struct OverlappedOperation {
    explicit OverlappedOperation(std::vector<BYTE> reportBytes) : bytes(std::move(reportBytes)) {}

    // Before each issue. A read's buffer is to be zeroed as well, as reports may be short.
    void Prepare(HANDLE event) {
        overlapped = OVERLAPPED{};
        overlapped.hEvent = event;
        issued = false;
    }
    // Notes whether the kernel took the operation: the record of one that failed at once is ours
    // again, though some systems leave it marked as pending.
    void Issued(bool taken) { issued = taken; }
    bool IsWithKernel() const { return issued && !HasOverlappedIoCompleted(&overlapped); }

    OVERLAPPED overlapped{};
    std::vector<BYTE> bytes;
    bool issued = false;
};

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

    std::mutex mutex_;  // guards: givenUp_
    std::vector<std::unique_ptr<OverlappedOperation>> givenUp_;
};

}  // namespace vela
