// The filters of a session and the collections that they accept.
#include "testing/unit/hid/HidTest.h"

namespace hid_test {
namespace {

using vela::HidDeviceFilterList;

struct FilterCase {
    const char* name;
    HidDeviceFilterList filters;
    bool found;
};

// The filters are applied to vendor 0x0488, usage page 0xFF80 and usage 0x80.
class DeviceFilter : public HidTest, public testing::WithParamInterface<FilterCase> {};

TEST_P(DeviceFilter, NeedsVendorPageAndUsageOfOneEntry) {
    const auto device = Plug();
    query_.filters = GetParam().filters;
    EXPECT_EQ(Scan()->devicePath, GetParam().found ? device->Path() : L"");
    EXPECT_EQ(query_.Questions().front(), "filters");
}

INSTANTIATE_TEST_SUITE_P(
    Lists, DeviceFilter,
    testing::Values(
        FilterCase{"Empty", {}, false},  //
        FilterCase{"Exact", {{0x0488, 0xFF80, 0x80}}, true},
        FilterCase{"AnyVendor", {{0, 0xFF80, 0x80}}, true},
        FilterCase{"OtherVendor", {{0x0489, 0xFF80, 0x80}}, false},
        FilterCase{"OtherPage", {{0x0488, 0xFF81, 0x80}}, false},
        FilterCase{"OtherUsage", {{0x0488, 0xFF80, 0x81}}, false},
        FilterCase{"AnyVendorOtherPage", {{0, 0xFF81, 0x80}}, false},
        FilterCase{"AnyVendorOtherUsage", {{0, 0xFF80, 0x81}}, false},
        // Only the vendor can be a wildcard.
        FilterCase{"NoPage", {{0x0488, 0, 0x80}}, false},
        FilterCase{"NoUsage", {{0x0488, 0xFF80, 0}}, false},
        FilterCase{"SecondOfTwo", {{0x0489, 0xFF80, 0x80}, {0x0488, 0xFF80, 0x80}}, true},
        FilterCase{"FirstOfTwo", {{0x0488, 0xFF80, 0x80}, {0x0489, 0xFF80, 0x80}}, true},
        FilterCase{"Twice", {{0x0488, 0xFF80, 0x80}, {0x0488, 0xFF80, 0x80}}, true},
        FilterCase{"SpreadOverTwo", {{0x0488, 0xFF81, 0x80}, {0x0489, 0xFF80, 0x80}}, false}),
    [](const auto& test) { return test.param.name; });

class DeviceFilters : public HidTest {};

TEST_F(DeviceFilters, LetTheDevicesOrderDecideNotTheirOwn) {
    TouchpadLayout later;
    later.vendorId = 0x0489;
    const auto first = Plug();
    Plug(later);
    query_.filters = {{0x0489, 0xFF80, 0x80}, {0x0488, 0xFF80, 0x80}};
    EXPECT_EQ(Scan()->devicePath, first->Path());
}

TEST_F(DeviceFilters, ZeroInADeviceIsAVendorLikeAnyOther) {
    TouchpadLayout layout;
    layout.vendorId = 0;
    const auto device = Plug(layout);
    EXPECT_TRUE(Scan()->devicePath.empty());
    query_.filters = {{0, 0xFF80, 0x80}};
    EXPECT_EQ(Scan()->devicePath, device->Path());
}

TEST_F(DeviceFilters, ProductIdsAreNotCompared) {
    TouchpadLayout layout;
    layout.productId = 0;
    const auto device = Plug(layout);
    EXPECT_EQ(Scan()->devicePath, device->Path());
}

}  // namespace
}  // namespace hid_test
