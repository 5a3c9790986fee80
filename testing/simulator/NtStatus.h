// The status that the kernel leaves in an OVERLAPPED record, and the last error made from it.
#pragma once

#include <windows.h>

namespace simulator {

NTSTATUS StatusOf(DWORD error);
DWORD ErrorOf(NTSTATUS status);

}  // namespace simulator
