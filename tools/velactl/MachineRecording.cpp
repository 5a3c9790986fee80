#include "tools/velactl/MachineRecording.h"

#include <algorithm>

#include "VelaAgentVersion.h"
#include "hid/HIDDevicePaths.h"
#include "tools/recording/AnonymousPaths.h"
#include "tools/recording/Bus.h"
#include "tools/recording/HexText.h"
#include "tools/velactl/CollectionRecording.h"
#include "tools/velactl/DeviceList.h"
#include "tools/velactl/ExitCodes.h"
#include "tools/velactl/FileVersion.h"
#include "tools/velactl/Text.h"
#include "touchpad/TouchpadDiscovery.h"

namespace velactl {
namespace {

constexpr int kFormat = 1;
constexpr std::uint32_t kSeverityError = 0x80000000;  // a status with this bit is a failure

bool IsWanted(std::uint16_t vendor) {
    const auto filters = vela::TouchpadDiscovery().GetHidDeviceFilters();
    return std::any_of(filters.begin(), filters.end(),
                       [&](const auto& filter) { return filter.VendorID == vendor; });
}

bool IsAny(std::uint16_t) { return true; }

Json About(RecordedStrings strings) {
    return {"Every HID collection of a machine, recorded for tests of VelaAgent.",
            "Numbers replace the instance ids and Bluetooth addresses in paths, which may be "
            "personal. No serial number was read.",
            "The collections were opened without read or write access. No report was read, and "
            "nothing was sent or set. \"requests\" lists the calls; the agent's discovery, which "
            "made the verdicts, makes some of them once more.",
            strings == RecordedStrings::kOfEveryVendor
                ? "Product and manufacturer strings were requested from every device."
                : "Product and manufacturer strings were requested only from devices of the "
                  "vendors in \"wantedVendors\"; no other device was sent a request."};
}

Json WantedVendors() {
    Json vendors = Json::array();
    for (const vela::HidDeviceFilter& filter : vela::TouchpadDiscovery().GetHidDeviceFilters()) {
        vendors.push_back(Hex(filter.VendorID));
    }
    return vendors;
}

std::string SystemVersion() {
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return FileVersion(std::filesystem::path(folder) / "kernel32.dll");
}

void StopIfWanted(const StopSignal& stop) {
    if (stop.WaitFor(std::chrono::milliseconds::zero())) throw Failure("stopped; no file written");
}

}  // namespace

Json RecordMachine(RecordedStrings strings, const StopSignal& stop) {
    const std::vector<std::wstring> paths = vela::GetHidDevicePathList();
    const Json rows = ListDevices(paths, Names::kOfNone);
    recording::AnonymousPaths anonymous;
    Json collections = Json::array();
    for (std::size_t i = 0; i < paths.size(); ++i) {
        StopIfWanted(stop);
        const std::string path = Utf8(paths[i]);
        Json collection = {{"path", anonymous.Of(path)},
                           {"bus", recording::BusOf(path)},
                           {"chosen", rows[i]["chosen"]},
                           {"verdict", rows[i]["verdict"]}};
        collection.update(RecordCollection(
            paths[i], strings == RecordedStrings::kOfEveryVendor ? IsAny : IsWanted));
        collections.push_back(std::move(collection));
    }
    StopIfWanted(stop);
    return {{"format", kFormat},
            {"about", About(strings)},
            {"recordedBy", "velactl " VELA_AGENT_VERSION},
            {"system", SystemVersion()},
            {"wantedVendors", WantedVendors()},
            {"requests", RequestsOf(collections)},
            {"collections", collections}};
}

Json RequestsOf(const Json& collections) {
    Json requests = Json::array();
    for (const Json& collection : collections) {
        for (const Json& call : collection["calls"]) {
            auto row = std::find_if(requests.begin(), requests.end(), [&](const Json& request) {
                return request["call"] == call["call"];
            });
            if (row == requests.end()) {
                requests.push_back({{"call", call["call"]},
                                    {"answeredBy", call["answeredBy"]},
                                    {"count", 0},
                                    {"failed", 0}});
                row = requests.end() - 1;
            }
            const bool failed = call.contains("error")
                                    ? call["error"] != 0
                                    : (recording::NumberOf(call["status"]) & kSeverityError) != 0;
            (*row)["count"] = (*row)["count"].get<int>() + 1;
            if (failed) (*row)["failed"] = (*row)["failed"].get<int>() + 1;
        }
    }
    return requests;
}

}  // namespace velactl
