/* The C side of the header's test, for the C++ side. */
#ifndef HEADER_IN_C_H
#define HEADER_IN_C_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

struct NamedExport {
    const char* name;
    void (*function)(void);
};

/* Every export of the header, in alphabetical order, as a C program sees it. */
extern const struct NamedExport kExportsInC[];
extern const size_t kExportsInCCount;

#ifdef __cplusplus
}
#endif

#endif
