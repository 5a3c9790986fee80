// The kinds of button touchpads in the field, by name.
#pragma once

#include <string>
#include <vector>

#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace virtual_touchpad {

struct KnownLayout {
    std::string name;
    TouchpadLayout layout;
};

const std::vector<KnownLayout>& KnownLayouts();

// Throws std::out_of_range for an unknown name.
const TouchpadLayout& LayoutNamed(const std::string& name);

}  // namespace virtual_touchpad
