// A host with min and max macros of its own: neither the header nor its includes may change them.
#define min(a, b) hosts_min
#define max hosts_max
#ifdef NOMINMAX
#define NOMINMAX_IS_DEFINED
#endif
#include "include/VelaAgent.hpp"

constexpr int hosts_min = 1;
constexpr int hosts_max = 2;
static_assert(min(7, 8) == 1 && max == 2);
#if defined(NOMINMAX) != defined(NOMINMAX_IS_DEFINED)
#error "NOMINMAX is not as it was."
#endif
#undef min
#undef max

// A host without such macros can use std::min.
#include <algorithm>
static_assert(std::min(1, 2) == 1 && std::max(1, 2) == 2);
