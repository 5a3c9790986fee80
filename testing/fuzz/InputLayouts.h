// Touchpads that differ in how they report: bit fields and arrays, several report ids and none.
#pragma once

#include <vector>

#include "testing/fuzz/FuzzDevice.h"
#include "testing/fuzz/InputFields.h"

namespace fuzz {

struct InputLayout {
    simulator::DeviceDescription description;
    InputFields fields;
    // A report of the pressed camera button alone.
    simulator::Bytes cameraPress;
};

// In a fixed order, as inputs choose by number.
const std::vector<InputLayout>& InputLayouts();

}  // namespace fuzz
