// A host that uses <windows.h>'s min and max keeps them when it includes that first.
#include <windows.h>
#ifndef min  // where <windows.h> gives none to C++
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif
#include "include/VelaAgent.hpp"

static_assert(min(1, 2) == 1 && max(1, 2) == 2);
