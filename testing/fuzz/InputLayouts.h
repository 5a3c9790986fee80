// Touchpads with different input reports: bit fields and arrays, several report ids and none.
#pragma once

#include <vector>

#include "testing/fuzz/FuzzDevice.h"
#include "testing/fuzz/InputFields.h"

namespace fuzz {

struct InputLayout {
    simulator::DeviceDescription description;
    InputFields fields;
    // A report in which only the camera button is pressed.
    simulator::Bytes cameraPress;
};

// Returns the layouts in a fixed order: inputs choose one by its number.
const std::vector<InputLayout>& InputLayouts();

}  // namespace fuzz
