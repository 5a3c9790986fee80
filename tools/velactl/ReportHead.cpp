#include "tools/velactl/ReportHead.h"

#include <algorithm>

#include "VelaAgentVersion.h"
#include "tools/velactl/Text.h"

namespace velactl {
namespace {

constexpr std::size_t kMostCauses = 3;  // of two lines each

// The causes in the order in which to mend them. What an earlier session logged comes last, as it
// may be over.
std::vector<NamedResult> Causes(const std::vector<NamedResult>& results) {
    std::vector<NamedResult> causes;
    std::copy_if(results.begin(), results.end(), std::back_inserter(causes),
                 [](const NamedResult& named) { return named.result.outcome == Outcome::kFailed; });
    std::stable_partition(causes.begin(), causes.end(),
                          [](const NamedResult& named) { return named.name != kLastSessionCheck; });
    if (causes.size() > kMostCauses) causes.resize(kMostCauses);
    return causes;
}

// A touchpad that is not the first one matches as well.
bool IsTouchpad(const Json& collection) {
    const std::string verdict = collection["verdict"];
    return verdict == "chosen as the touchpad" || verdict == "an earlier one is the touchpad";
}

std::string Touchpads(const Json& machine) {
    std::string buses;
    int count = 0;
    for (const Json& collection : machine["collections"]) {
        if (!IsTouchpad(collection)) continue;
        buses += (count++ == 0 ? " (bus: " : ", ") + collection["bus"].get<std::string>();
    }
    if (count != 0) buses += ")";
    return std::to_string(count) + buses +
           (count > 1 ? "; the agent drives only the first, see \"devices\"" : "");
}

}  // namespace

std::string ReportHead(const std::vector<NamedResult>& results, const Json& machine) {
    std::string text =
        "VelaAgent report of " + LocalTime() + ", by velactl " VELA_AGENT_VERSION "\n";
    const std::vector<NamedResult> causes = Causes(results);
    if (causes.empty()) text += "CAUSE: none found, every check of doctor is ok or was skipped\n";
    for (const NamedResult& cause : causes) {
        text += (text.find("CAUSE") == std::string::npos ? "CAUSE: " : "also:  ") + cause.name +
                ": " + cause.result.finding + '\n';
        if (!cause.result.nextStep.empty()) text += "  next: " + cause.result.nextStep + '\n';
    }
    return text + "Touchpads that match: " + Touchpads(machine) + '\n';
}

}  // namespace velactl
