// The process-wide session behind the exports.
#pragma once

#include "touchpad/TandrelHID.h"

namespace vela {

// Made on first use, destroyed at process exit.
CTandrelHID& TouchpadSession();

}  // namespace vela
