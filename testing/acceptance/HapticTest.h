// The fixture of the haptic tests: the built DLL and a virtual haptic touchpad.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "testing/kit/LogFolder.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/control/VirtualDevice.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace acceptance {

using namespace kit;

using virtual_touchpad::HapticFields;
using virtual_touchpad::HapticLayout;

class HapticTest : public testing::Test {
 protected:
    // No device is plugged in at first.
    HapticTest() {
        virtual_touchpad::UnplugAll();
        agent_.InitLogger(log_.Path().c_str());
    }
    ~HapticTest() override {
        agent_.UnInitHapticTP();
        agent_.UnInitLogger();
        device_.reset();
        virtual_touchpad::UnplugAll();
    }

    // Plugs a touchpad with these fields in its haptics report.
    void Plug(const HapticFields& fields = {9, 42, 17, 200}, const HapticLayout& layout = {}) {
        path_ = virtual_touchpad::Plug(virtual_touchpad::SettingsOf(layout), kName);
        device_ = std::make_unique<virtual_touchpad::VirtualDevice>(kName);
        device_->SetFeature(HapticsReport(fields));
    }
    void Unplug() {
        device_.reset();
        virtual_touchpad::Unplug(kName);
    }
    virtual_touchpad::VirtualDevice& Device() { return *device_; }
    const std::wstring& Path() const { return path_; }
    // Returns the haptics report that the device stores now.
    virtual_touchpad::Report StoredHaptics() const {
        return device_->Feature(virtual_touchpad::kHapticsReportId).value();
    }

    // Ends the log and returns its lines without the scan's and the logger's own.
    std::vector<std::string> SessionLines() {
        agent_.UnInitLogger();
        std::vector<std::string> lines;
        for (const std::string& line : log_.Lines()) {
            if (line.find("HIDInformation}") == line.npos) lines.push_back(line);
        }
        lines.pop_back();  // the logger's own
        return lines;
    }

    static constexpr wchar_t kName[] = L"haptic";

    AgentDll agent_;
    LogFolder log_;

 private:
    std::wstring path_;
    std::unique_ptr<virtual_touchpad::VirtualDevice> device_;
};

}  // namespace acceptance
