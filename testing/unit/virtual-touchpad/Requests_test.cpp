// Which requests of a host reach the device, and which the class driver answers by itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"

namespace virtual_touchpad {
namespace {

class RequestCounts : public testing::Test {
 protected:
    Requests New() {
        const Requests added = touchpad_.Device().RequestsSince(seen_);
        seen_ = touchpad_.Device().RequestsSince({});
        return added;
    }

    PluggedTouchpad touchpad_;

 private:
    Requests seen_ = touchpad_.Device().RequestsSince({});
};

TEST_F(RequestCounts, WhatTheSystemKnowsReachesNoDevice) {
    HostFile host(touchpad_.Path(), 0);
    EXPECT_EQ(host.AttributesError(), DWORD{ERROR_SUCCESS});
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    EXPECT_TRUE(HidD_GetPreparsedData(host.Handle(), &preparsed));
    HidD_FreePreparsedData(preparsed);
    host.Close();
    EXPECT_EQ(New(), Requests{});
}

TEST_F(RequestCounts, StringsAndReportsDo) {
    HostFile host(touchpad_.Path());
    wchar_t text[64] = {};
    Report feature{kClickModeReportId, 1, 2, 3, 4};
    const auto length = static_cast<ULONG>(feature.size());
    EXPECT_TRUE(HidD_GetProductString(host.Handle(), text, sizeof(text)));
    EXPECT_EQ(New(), (Requests{{"string", 1}}));
    EXPECT_TRUE(HidD_SetFeature(host.Handle(), feature.data(), length));
    EXPECT_EQ(New(), (Requests{{"set feature", 1}}));
    EXPECT_TRUE(HidD_GetFeature(host.Handle(), feature.data(), length));
    EXPECT_TRUE(HidD_GetFeature(host.Handle(), feature.data(), length));
    EXPECT_EQ(New(), (Requests{{"get feature", 2}}));
    EXPECT_EQ(host.WriteAndWait(Report(13, kLightReportId)), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(New(), (Requests{{"output", 1}}));
}

}  // namespace
}  // namespace virtual_touchpad
