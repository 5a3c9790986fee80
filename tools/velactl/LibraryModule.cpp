#include "tools/velactl/LibraryModule.h"

#include "interface/ModuleHandle.h"

namespace velactl {
namespace {

HMODULE libraryModule = nullptr;

}  // namespace

void SetLibraryModule(HMODULE module) { libraryModule = module; }

}  // namespace velactl

namespace vela {

HMODULE ModuleHandle() { return velactl::libraryModule; }

}  // namespace vela
