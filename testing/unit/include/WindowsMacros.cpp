// A host that includes <windows.h> first keeps its min and max macros.
#include <windows.h>
#ifndef min  // some <windows.h> define none for C++
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif
#include "include/VelaAgent.hpp"

static_assert(min(1, 2) == 1 && max(1, 2) == 2);
