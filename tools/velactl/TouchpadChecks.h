// The checks of doctor that examine the touchpad without opening it.
#pragma once

#include "tools/velactl/Checks.h"

namespace velactl {

CheckResult CheckDevice(DoctorContext& doctor);
CheckResult CheckParts(DoctorContext& doctor);

}  // namespace velactl
