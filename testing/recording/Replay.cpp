#include "testing/recording/Replay.h"

#include <algorithm>
#include <map>
#include <memory>

#include "haptic/HapticDiscovery.h"
#include "hid/HIDDiscovery.h"
#include "platform/Utf8.h"
#include "testing/kit/native/LibraryFolder.h"
#include "testing/recording/RebuiltDescriptor.h"
#include "testing/recording/Meeting.h"
#include "testing/simulator/Machine.h"
#include "testing/simulator/hid/ReportDescriptor.h"
#include "touchpad/TouchpadDiscovery.h"

namespace recording {
namespace {

using simulator::Device;
using simulator::Machine;

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

simulator::DeviceDescription Describe(const Json& collection, const Bytes& descriptor) {
    const auto number = [&](const char* name) {
        return static_cast<std::uint16_t>(NumberOf(collection.at("attributes").at(name)));
    };
    simulator::DeviceDescription description;
    description.reportDescriptor = descriptor;
    description.vendorId = number("vendor");
    description.productId = number("product");
    description.versionNumber = number("version");
    description.path = Wide(collection.at("path"));
    if (collection.contains("strings")) {
        description.productString = Wide(collection.at("strings").value("product", ""));
    }
    return description;
}

std::string VendorFile(const Json& vendors) {
    std::string text;
    for (const Json& vendor : vendors) text += '[' + vendor.get<std::string>() + "]\r\n";
    return text;
}

Json PathOrNull(vela::IDiscoveryQuery& query) {
    const std::wstring path = vela::ScanHIDInformation(&query)->devicePath;
    return path.empty() ? Json() : Json(vela::Utf8(path));
}

class SimulatedTouchpad : public Touchpad {
 public:
    explicit SimulatedTouchpad(std::shared_ptr<Device> device) : device_(std::move(device)) {}
    void SendInput(const Bytes& report) override {
        device_->WaitForPendingReads();
        device_->SendInput(report);
    }
    std::vector<Bytes> Outputs() override { return device_->Outputs(); }
    Bytes Feature(std::uint8_t reportId) override { return device_->Feature(reportId); }

 private:
    std::shared_ptr<Device> device_;
};

struct LinkedExports {
#define VELA_LINKED(name) Vela##name##Function name = ::name;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_LINKED)
#undef VELA_LINKED
};

// Returns the id of the feature report with the intensity, 0 without one.
std::uint8_t HapticReportId(const Json& collection) {
    constexpr std::uint32_t kHapticsPage = 0x0E;
    for (const Json& record : collection.at("capabilities").at("feature").at("values")) {
        if (NumberOf(record.at("usagePage")) == kHapticsPage) return record.at("reportId");
    }
    return 0;
}

class SimulatedMachine {
 public:
    explicit SimulatedMachine(const Json& machine) {
        for (const Json& collection : machine.at("collections")) Plug(collection);
    }

    const Json& NotRebuilt() const { return notRebuilt_; }

    Json Meet(const std::string& path) {
        SimulatedTouchpad touchpad(devices_.at(path));
        return HoldMeeting(AgentOf(LinkedExports()), touchpad, Wide(path));
    }
    Json SetLevel(const std::string& path) {
        SimulatedTouchpad touchpad(devices_.at(path));
        return SetHapticLevel(AgentOf(LinkedExports()), touchpad, hapticReportIds_.at(path));
    }

 private:
    void Plug(const Json& collection) {
        const std::string path = collection.at("path");
        const auto note = [&](const std::string& text) {
            notRebuilt_.push_back(path + ": " + text);
        };
        if (!collection.contains("capabilities") || !collection.contains("attributes")) {
            return note("it could not be read on the recorded machine");
        }
        const RebuiltDescriptor rebuilt = RebuildDescriptor(collection.at("capabilities"));
        for (const std::string& text : rebuilt.notes) note(text);
        try {
            for (const std::string& text :
                 Differences(collection.at("capabilities"), rebuilt.bytes)) {
                note(text);
            }
            hapticReportIds_[path] = HapticReportId(collection);
            devices_[path] = Machine::Get().Plug(Describe(collection, rebuilt.bytes));
        } catch (const simulator::hid::DescriptorError& error) {
            note(std::string("the rebuilt descriptor is refused: ") + error.what());
        }
    }

    Json notRebuilt_ = Json::array();
    std::map<std::string, std::shared_ptr<Device>> devices_;
    std::map<std::string, std::uint8_t> hapticReportIds_;
};

// Removes the zeros at the end.
Bytes WithoutPadding(const Json& report) {
    Bytes bytes = BytesOf(report);
    while (!bytes.empty() && bytes.back() == 0) bytes.pop_back();
    return bytes;
}

bool AreSame(const Json& recorded, const Json& replayed) {
    if (!recorded.is_string() || !replayed.is_string()) return false;
    return BytesOf(recorded).size() <= BytesOf(replayed).size() &&
           WithoutPadding(recorded) == WithoutPadding(replayed);
}

}  // namespace

Json Replay(const Json& machine) {
    Machine::Get().Reset();
    const kit::LibraryFolder folder;
    folder.PutVelaIni(VendorFile(machine.at("wantedVendors")));
    SimulatedMachine simulated(machine);
    vela::TouchpadDiscovery touchpad;
    vela::HapticDiscovery haptic;
    Json result = {{"notRebuilt", simulated.NotRebuilt()},
                   {"touchpad", PathOrNull(touchpad)},
                   {"haptic", PathOrNull(haptic)},
                   {"meeting", nullptr},
                   {"hapticLevel", nullptr}};
    if (result["touchpad"].is_string()) result["meeting"] = simulated.Meet(result["touchpad"]);
    if (result["haptic"].is_string()) result["hapticLevel"] = simulated.SetLevel(result["haptic"]);
    return result;
}

Json RecordedChoice(const Json& machine, const std::string& kind) {
    for (const Json& collection : machine.at("collections")) {
        if (collection.at("verdict") == "chosen as the " + kind) return collection.at("path");
    }
    return nullptr;
}

std::vector<std::string> MeetingDifferences(const Json& recorded, const Json& replayed) {
    std::vector<std::string> lines;
    const auto note = [&](const std::string& name, const Json& one, const Json& other) {
        lines.push_back(name + ": recorded " + one.dump() + ", replayed " + other.dump());
    };
    if (!recorded.is_object() || !replayed.is_object()) {
        if (recorded != replayed) note("meeting", recorded, replayed);
        return lines;
    }
    for (const char* const name : {"init", "inputs", "notifications"}) {
        const Json one = recorded.value(name, Json());
        const Json other = replayed.value(name, Json());
        if (one != other) note(name, one, other);
    }
    const Json outputs = recorded.value("outputs", Json::array());
    const Json others = replayed.value("outputs", Json::array());
    for (std::size_t i = 0; i < std::max(outputs.size(), others.size()); ++i) {
        const Json one = i < outputs.size() ? outputs[i] : Json();
        const Json other = i < others.size() ? others[i] : Json();
        if (!AreSame(one, other)) note("output " + std::to_string(i + 1), one, other);
    }
    return lines;
}

}  // namespace recording
