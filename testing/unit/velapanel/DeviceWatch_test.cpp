// The panel with a plugged touchpad to which a host writes reports.
#include <gmock/gmock.h>

#include <windows.h>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/plug/Plug.h"
#include "tools/velapanel/DeviceWatch.h"

extern "C" {
#include <hidsdi.h>
}

namespace velapanel {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using virtual_touchpad::Report;

// A host's handle.
class Host {
 public:
    explicit Host(const std::wstring& path)
        : file_(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                            nullptr)) {}
    ~Host() { CloseHandle(file_); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    bool Write(Report report) const {
        DWORD written = 0;
        return WriteFile(file_, report.data(), static_cast<DWORD>(report.size()), &written,
                         nullptr) != FALSE;
    }
    bool SetFeature(Report report) const {
        return HidD_SetFeature(file_, report.data(), static_cast<ULONG>(report.size())) != FALSE;
    }
    Report Read() const {
        Report report(64);
        DWORD read = 0;
        ReadFile(file_, report.data(), static_cast<DWORD>(report.size()), &read, nullptr);
        report.resize(read);
        return report;
    }

 private:
    HANDLE file_;
};

class DeviceWatchTest : public testing::Test {
 protected:
    DeviceWatchTest() { virtual_touchpad::UnplugAll(); }
    ~DeviceWatchTest() override { virtual_touchpad::UnplugAll(); }

    std::wstring Plug() { return virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{}); }

    std::vector<std::string> Fields() const {
        std::vector<std::string> fields;
        for (const ReportLine& line : watch_.State().reports) {
            fields.push_back(line.kind + ": " + line.fields);
        }
        return fields;
    }

    DeviceWatch watch_;
};

TEST_F(DeviceWatchTest, WithoutATouchpadThereIsNothingToSeeOrToDo) {
    watch_.Refresh();
    EXPECT_FALSE(watch_.State().isPlugged);
    EXPECT_EQ(watch_.State().hapticLevel, std::nullopt);
    EXPECT_THROW(watch_.Do(Action::Camera), std::runtime_error);
    EXPECT_THAT(Fields(), IsEmpty());
}

TEST_F(DeviceWatchTest, ShowsTheReportsThatAHostSends) {
    const Host host(Plug());
    watch_.Refresh();
    EXPECT_TRUE(watch_.State().isPlugged);
    EXPECT_THAT(Fields(), IsEmpty());
    ASSERT_TRUE(host.Write({2, 200, 0, 0, 90, 0, 30, 8, 0x0F, 0, 0, 0, 0}));
    ASSERT_TRUE(host.SetFeature({4, 0, 0x2C, 0x01, 0}));
    watch_.Refresh();
    const virtual_touchpad::Lights& lights = watch_.State().lights;
    EXPECT_EQ(lights.Brightness(0x20), 200);
    EXPECT_EQ(lights.Brightness(0x24), 90);
    EXPECT_EQ(lights.Brightness(0x27), 30);
    EXPECT_EQ(lights.breathing, 8);
    EXPECT_THAT(Fields(), ElementsAre("feature: click mode 300",
                                      "output: 200: camera on; 90: chat; 30: mic off; breathing 8; "
                                      "all active"));
    watch_.Refresh();
    EXPECT_EQ(Fields().size(), 2U);
}

TEST_F(DeviceWatchTest, EachActionIsTheEventThatAHostReads) {
    const Host host(Plug());
    watch_.Refresh();
    for (const ActionInfo& info : kActions) {
        if (info.action == Action::Plug) continue;
        watch_.Do(info.action);
        const Report report = host.Read();
        ASSERT_GE(report.size(), 2U);
        EXPECT_EQ(report[0], 1);
        EXPECT_EQ(report[1], 1U << (info.eventUsage - 0x40U));
    }
    EXPECT_EQ(Fields().size(), kActions.size() - 1);
}

TEST_F(DeviceWatchTest, ThePlugCanBePulledAndPutBack) {
    Plug();
    watch_.Refresh();
    watch_.Do(Action::Plug);
    EXPECT_FALSE(watch_.State().isPlugged);
    EXPECT_THAT(virtual_touchpad::PluggedDevices(), IsEmpty());
    watch_.Do(Action::Plug);
    EXPECT_TRUE(watch_.State().isPlugged);
    EXPECT_EQ(virtual_touchpad::PluggedDevices().size(), 1U);
    EXPECT_NO_THROW(watch_.Do(Action::Camera));
}

TEST_F(DeviceWatchTest, ATouchpadThatSomebodyElseReplugsIsSeenDarkAgain) {
    {
        const Host host(Plug());
        ASSERT_TRUE(host.Write({2, 200, 0, 0, 0, 0, 0, 0, 0x01, 0, 0, 0, 0}));
        watch_.Refresh();
        EXPECT_EQ(watch_.State().lights.Brightness(0x20), 200);
    }
    virtual_touchpad::Unplug();
    watch_.Refresh();
    EXPECT_FALSE(watch_.State().isPlugged);
    EXPECT_EQ(watch_.State().lights.Brightness(0x20), 0);
    const Host host(Plug());
    watch_.Refresh();
    EXPECT_TRUE(watch_.State().isPlugged);
    ASSERT_TRUE(host.Write({2, 0, 7, 0, 0, 0, 0, 0, 0x01, 0, 0, 0, 0}));
    watch_.Refresh();
    EXPECT_EQ(watch_.State().lights.Brightness(0x21), 7);
}

TEST_F(DeviceWatchTest, RemembersTheLatestReportsOnly) {
    const Host host(Plug());
    watch_.Refresh();
    for (int i = 0; i < 40; ++i) watch_.Do(Action::Chat);
    EXPECT_EQ(Fields().size(), 32U);
}

TEST_F(DeviceWatchTest, ShowsTheHapticTouchpadsLevel) {
    const virtual_touchpad::HapticLayout layout;
    const Host host(virtual_touchpad::Plug(virtual_touchpad::SettingsOf(layout), L"haptic"));
    virtual_touchpad::VirtualDevice(L"haptic").SetFeature(
        virtual_touchpad::HapticsReport({1, 50, 1, 1}));
    watch_.Refresh();
    EXPECT_EQ(watch_.State().hapticLevel, 50U);
    ASSERT_TRUE(host.SetFeature(virtual_touchpad::HapticsReport({1, 90, 1, 1})));
    watch_.Refresh();
    EXPECT_EQ(watch_.State().hapticLevel, 90U);
    EXPECT_THAT(Fields(), ElementsAre("feature: haptic intensity 90"));
    virtual_touchpad::Unplug(L"haptic");
    watch_.Refresh();
    EXPECT_EQ(watch_.State().hapticLevel, std::nullopt);
}

}  // namespace
}  // namespace velapanel
