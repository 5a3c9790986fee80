// One overlapped read or write: the platform's record of it, and its bytes.
#pragma once

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

}  // namespace vela
