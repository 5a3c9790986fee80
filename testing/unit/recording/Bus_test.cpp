#include "tools/recording/Bus.h"

#include <gtest/gtest.h>

namespace {

using recording::BusOf;

TEST(BusTest, IsToldByTheFormOfTheHardwareId) {
    EXPECT_EQ(BusOf(R"(\\?\hid#vid_0488&pid_1234&mi_01#7&1&0&0000#{})"), "USB");
    EXPECT_EQ(BusOf(R"(\\?\HID#VID_0488&PID_1234#7&1&0&0000#{})"), "USB");
    EXPECT_EQ(BusOf(R"(\\?\hid#{00001124-0000-1000-8000-00805f9b34fb}_vid&00020488#1#{})"),
              "Bluetooth");
    EXPECT_EQ(BusOf(R"(\\?\hid#{00001812-0000-1000-8000-00805f9b34fb}_dev_vid&020488#1#{})"),
              "Bluetooth LE");
    EXPECT_EQ(BusOf(R"(\\?\hid#vela0488&col02#5&1&0&0001#{})"), "I2C");
    EXPECT_EQ(BusOf(R"(\\?\hid#ven_vela&dev_0488&col02#5&1&0&0001#{})"), "I2C");
}

TEST(BusTest, IsUnknownForAnotherHardwareId) {
    EXPECT_EQ(BusOf(R"(\\?\hid#vtouchpad#touchpad#{})"), "unknown");
    EXPECT_EQ(BusOf(""), "unknown");
}

}  // namespace
