// A test for each descriptor, named after it.
#pragma once

#include <ostream>

#include <gtest/gtest.h>

#include "testing/parity/Descriptors.h"

namespace parity {

inline void PrintTo(const Descriptor& descriptor, std::ostream* out) { *out << descriptor.name; }

class DescriptorTest : public testing::TestWithParam<Descriptor> {};

inline std::string NameOf(const testing::TestParamInfo<Descriptor>& info) {
    return info.param.name;
}

}  // namespace parity
