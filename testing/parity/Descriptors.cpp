#include "testing/parity/Descriptors.h"

namespace parity {

const std::vector<Descriptor>& AllDescriptors() {
    static const std::vector<Descriptor> all = [] {
        std::vector<Descriptor> collected;
        for (const auto family : {TouchpadDescriptors, DeviceDescriptors, FieldDescriptors,
                                  ButtonDescriptors, UnusualDescriptors}) {
            for (Descriptor& descriptor : family()) collected.push_back(std::move(descriptor));
        }
        return collected;
    }();
    return all;
}

}  // namespace parity
