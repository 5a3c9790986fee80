// One overlapped read or write: the platform's record of it, and its bytes.
#pragma once

#include <utility>
#include <vector>

#include <windows.h>

namespace vela {

struct OverlappedOperation {
    explicit OverlappedOperation(std::vector<BYTE> reportBytes) : bytes(std::move(reportBytes)) {}

    // Called before each issue. A read's buffer has to be zeroed as well, as reports may be short.
    void Prepare(HANDLE event) {
        overlapped = OVERLAPPED{};
        overlapped.hEvent = event;
        issued = false;
    }
    // Notes whether the kernel accepted the operation. The record of one that failed at once may be
    // reused, though some systems leave it marked as pending.
    void Issued(bool taken) { issued = taken; }
    bool IsWithKernel() const { return issued && !HasOverlappedIoCompleted(&overlapped); }

    OVERLAPPED overlapped{};
    std::vector<BYTE> bytes;
    bool issued = false;
};

}  // namespace vela
