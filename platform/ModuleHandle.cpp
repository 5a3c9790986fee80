#include "platform/ModuleHandle.h"

#include <atomic>

namespace vela {
namespace {

std::atomic<HMODULE> moduleHandle{nullptr};

}  // namespace

HMODULE ModuleHandle() { return moduleHandle; }

void SetModuleHandle(HMODULE module) { moduleHandle = module; }

}  // namespace vela
