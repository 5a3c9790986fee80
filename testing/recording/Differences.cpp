#include <memory>

#include "testing/recording/RebuiltDescriptor.h"
#include "testing/simulator/hid/ReportDescriptor.h"
#include "tools/recording/CapabilityRecording.h"

namespace recording {

std::vector<std::string> Differences(const Json& capabilities, const Bytes& descriptor) {
    const auto collections = simulator::hid::ParseReportDescriptor(descriptor);
    const std::unique_ptr<_HIDP_PREPARSED_DATA, bool (*)(PHIDP_PREPARSED_DATA)> preparsed(
        simulator::hid::AllocatePreparsedData(collections.at(0)),
        simulator::hid::FreePreparsedData);
    CallRecord calls;
    const nlohmann::json recorded = capabilities;
    const nlohmann::json rebuilt = RecordCapabilities(preparsed.get(), calls);
    std::vector<std::string> lines;
    for (const auto& change : nlohmann::json::diff(recorded, rebuilt)) {
        const std::string path = change["path"];
        const nlohmann::json::json_pointer pointer(path);
        const auto text = [&](const nlohmann::json& json) {
            return json.contains(pointer) ? json[pointer].dump() : std::string("nothing");
        };
        lines.push_back(path.substr(1) + ": recorded " + text(recorded) + ", rebuilt " +
                        text(rebuilt));
    }
    return lines;
}

}  // namespace recording
