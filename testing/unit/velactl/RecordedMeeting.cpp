#include "testing/unit/velactl/RecordedMeeting.h"

#include <fstream>
#include <stdexcept>

#include "testing/kit/windows/AgentDll.h"
#include "testing/recording/Meeting.h"
#include "testing/unit/velactl/Velactl.h"
#include "testing/virtual-touchpad/control/VirtualDevice.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace velactl_test {
namespace {

using recording::Bytes;
using OrderedJson = nlohmann::ordered_json;

class WineTouchpad : public recording::Touchpad {
 public:
    void SendInput(const Bytes& report) override { device_.SendInput(report); }
    std::vector<Bytes> Outputs() override {
        std::vector<Bytes> reports;
        for (const auto& output : device_.OutputReports()) reports.push_back(output.bytes);
        return reports;
    }
    Bytes Feature(std::uint8_t reportId) override {
        return device_.Feature(reportId).value_or(Bytes{});
    }
    void SetFeature(const Bytes& report) { device_.SetFeature(report); }

 private:
    virtual_touchpad::VirtualDevice device_;
};

// The DLL in a folder of its own, with a "Vela.ini" when the vendor is another one.
std::filesystem::path CopyOfTheDll(const std::filesystem::path& folder, std::uint16_t vendor) {
    if (vendor != virtual_touchpad::TouchpadLayout{}.vendorId) {
        std::ofstream(folder / "Vela.ini") << '[' << recording::Hex(vendor) << "]\n";
    }
    std::filesystem::copy_file(kit::ProgramFolder() / "VelaAgent.dll", folder / "VelaAgent.dll");
    return folder / "VelaAgent.dll";
}

OrderedJson Record(const std::filesystem::path& folder, const std::filesystem::path& dll) {
    const std::filesystem::path file = folder / "machine.json";
    const Finished run(L"record \"" + file.wstring() + L"\" --dll \"" + dll.wstring() + L"\"");
    if (run.exitCode != 0) throw std::runtime_error("velactl record failed: " + run.errors);
    return OrderedJson::parse(std::ifstream(file));
}

}  // namespace

OrderedJson RecordWithMeeting(const virtual_touchpad::TouchpadLayout& layout) {
    const kit::TemporaryFolder folder;
    const auto file = CopyOfTheDll(folder.Path(), layout.vendorId);
    const std::wstring path = virtual_touchpad::Plug(layout);
    OrderedJson machine = Record(folder.Path(), file);
    const kit::AgentDll dll(file);
    {
        WineTouchpad touchpad;
        const recording::Agent agent = recording::AgentOf(dll);
        machine["expected"]["meeting"] = recording::HoldMeeting(agent, touchpad, path);
    }
    virtual_touchpad::Unplug();
    FreeLibrary(dll.Module());
    return machine;
}

OrderedJson RecordWithLevel(const virtual_touchpad::HapticLayout& layout) {
    const kit::TemporaryFolder folder;
    const kit::AgentDll dll;
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(layout));
    OrderedJson machine = Record(folder.Path(), dll.File());
    {
        WineTouchpad touchpad;
        touchpad.SetFeature(virtual_touchpad::HapticsReport({}));
        machine["expected"]["hapticLevel"] = recording::SetHapticLevel(
            recording::AgentOf(dll), touchpad, virtual_touchpad::kHapticsReportId);
    }
    virtual_touchpad::Unplug();
    return machine;
}

}  // namespace velactl_test
