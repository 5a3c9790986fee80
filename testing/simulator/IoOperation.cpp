#include "testing/simulator/IoOperation.h"

#include "testing/simulator/NtStatus.h"

namespace simulator {
namespace {

void SetStatus(OVERLAPPED& overlapped, NTSTATUS status) {
    __atomic_store_n(&overlapped.Internal, static_cast<ULONG_PTR>(status), __ATOMIC_RELEASE);
}

}  // namespace

void IoOperation::Complete(DWORD error, DWORD bytes) const {
    overlapped_->InternalHigh = bytes;
    SetStatus(*overlapped_, StatusOf(error));
    signalled_->Waitable()->Set();
}

void MarkPending(OVERLAPPED& overlapped) {
    SetStatus(overlapped, static_cast<NTSTATUS>(STATUS_PENDING));
}

NTSTATUS StatusIn(const OVERLAPPED& overlapped) {
    return static_cast<NTSTATUS>(__atomic_load_n(&overlapped.Internal, __ATOMIC_ACQUIRE));
}

}  // namespace simulator
