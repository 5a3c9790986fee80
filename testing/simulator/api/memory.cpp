// The global heap, limited to fixed blocks.
#include <windows.h>

#include <cstdlib>
#include <cstring>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"

using namespace simulator;

namespace {

// Fills blocks without GMEM_ZEROINIT, so that code relying on zeros fails.
constexpr int kFresh = 0xCD;

void* Allocate(std::size_t size, bool zeroed) {
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) std::memset(block, zeroed ? 0 : kFresh, size);
    return block;
}

bool Forget(void* block) {
    const MachineLock lock;
    return State().globalMemory.erase(block) != 0;
}

}  // namespace

extern "C" {

HGLOBAL WINAPI GlobalAlloc(UINT uFlags, SIZE_T dwBytes) {
    if (const auto fault = Enter("GlobalAlloc", Arguments(Hex(uFlags), Count(dwBytes)))) {
        return fault->Failed<HGLOBAL>(nullptr);
    }
    // Movable blocks, whose handle is not their address, are not modelled.
    if ((uFlags & GMEM_MOVEABLE) != 0) return FailWith<HGLOBAL>(ERROR_NOT_SUPPORTED, nullptr);
    void* const block = Allocate(dwBytes, (uFlags & GMEM_ZEROINIT) != 0);
    if (block == nullptr) return FailWith<HGLOBAL>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
    const MachineLock lock;
    State().globalMemory.insert(block);
    return block;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL hMem) {
    if (const auto fault = Enter("GlobalFree", "")) return fault->Failed<HGLOBAL>(hMem);
    if (hMem == nullptr) return nullptr;
    if (!Forget(hMem)) {
        NoteMisuse("GlobalFree: not an allocated block");
        return FailWith(ERROR_INVALID_HANDLE, hMem);
    }
    std::free(hMem);
    return nullptr;
}

}  // extern "C"
