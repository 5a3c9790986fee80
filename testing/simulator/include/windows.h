// The part of the platform's headers that the agent uses, with the platform's own names, values and
// record sizes. Wide characters are the compiler's: four bytes here, two on the platform.
#pragma once

#include <minwindef.h>
#include <winerror.h>
#include <winnt.h>
#include <winbase.h>
#include <winnls.h>
#include <winuser.h>
#include <crt_extras.h>
