#include "tools/recording/AnonymousPaths.h"

#include <gtest/gtest.h>

namespace {

using recording::AnonymousPaths;

constexpr char kClass[] = "#{4d1e55b2-f16f-11cf-88cb-001111000030}";

std::string Of(const std::string& devicePart) {
    AnonymousPaths paths;
    return paths.Of(R"(\\?\hid#)" + devicePart + kClass);
}
std::string Path(const std::string& devicePart) { return R"(\\?\hid#)" + devicePart + kClass; }

TEST(AnonymousPathsTest, TheInstanceIdBecomesANumber) {
    EXPECT_EQ(Of("vid_0488&pid_1234#SN0815"), Path("vid_0488&pid_1234#1"));
}

TEST(AnonymousPathsTest, TheNumberOfTheCollectionStays) {
    EXPECT_EQ(Of("vid_0488&pid_1234&col02#7&2a1b3c4d&0&0001"),
              Path("vid_0488&pid_1234&col02#1&0001"));
}

TEST(AnonymousPathsTest, ABluetoothAddressBecomesANumber) {
    EXPECT_EQ(Of("{00001812-0000-1000-8000-00805f9b34fb}_dev_vid&020488_pid&1234_rev&0011_"
                 "d3f0a1b2c3d4&col01#9&11223344&0&0000"),
              Path("{00001812-0000-1000-8000-00805f9b34fb}_dev_vid&020488_pid&1234_rev&0011_"
                   "address-1&col01#2&0000"));
}

TEST(AnonymousPathsTest, EqualIdsHaveTheSameNumberAndOthersAnother) {
    AnonymousPaths paths;
    const auto of = [&](const std::string& instance) {
        return paths.Of(Path("vid_0488&pid_1234#" + instance));
    };
    EXPECT_EQ(of("7&aa&0&0000"), Path("vid_0488&pid_1234#1&0000"));
    EXPECT_EQ(of("7&bb&0&0000"), Path("vid_0488&pid_1234#2&0000"));
    EXPECT_EQ(of("7&AA&0&0001"), Path("vid_0488&pid_1234#1&0001"));
}

TEST(AnonymousPathsTest, WhatFollowsTheClassStays) {
    AnonymousPaths paths;
    EXPECT_EQ(paths.Of(Path("vid_0488&pid_1234#7&aa&0&0000") + R"(\kbd)"),
              Path("vid_0488&pid_1234#1&0000") + R"(\kbd)");
}

TEST(AnonymousPathsTest, AnotherFormOfAPathKeepsItsShape) {
    AnonymousPaths paths;
    EXPECT_EQ(paths.Of("touchpad"), "touchpad");
    EXPECT_EQ(paths.Of(""), "");
}

}  // namespace
