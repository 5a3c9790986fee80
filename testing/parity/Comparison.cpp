#include "testing/parity/Comparison.h"

#include <map>

namespace parity {
namespace {

using ByCall = std::map<std::string, const Entry*>;

ByCall CallsOf(const Transcript& transcript) {
    ByCall calls;
    for (const Entry& entry : transcript) calls.emplace(entry.call, &entry);
    return calls;
}

Entry Find(const ByCall& calls, const std::string& call) {
    const auto found = calls.find(call);
    return found != calls.end() ? *found->second : Entry{call, {}};
}

// Returns the names of the first entry in its order, then those that only the second one has.
std::vector<std::string> ResultNames(const Entry& first, const Entry& second) {
    std::vector<std::string> names;
    for (const auto& [name, value] : first.results) names.push_back(name);
    for (const auto& [name, value] : second.results) {
        if (first.ValueOf(name).empty()) names.push_back(name);
    }
    return names;
}

}  // namespace

std::vector<Difference> Compare(const std::string& descriptor, const Transcript& simulator,
                                const Transcript& wine) {
    std::vector<Difference> differences;
    const auto compare = [&](const Entry& ofSimulator, const Entry& ofWine) {
        for (const std::string& name : ResultNames(ofSimulator, ofWine)) {
            if (ofSimulator.ValueOf(name) == ofWine.ValueOf(name)) continue;
            differences.push_back({descriptor, ofSimulator, ofWine, name});
        }
    };
    const ByCall simulatorCalls = CallsOf(simulator);
    const ByCall wineCalls = CallsOf(wine);
    for (const Entry& entry : simulator) compare(entry, Find(wineCalls, entry.call));
    for (const Entry& entry : wine) {
        if (simulatorCalls.count(entry.call) == 0) compare({entry.call, {}}, entry);
    }
    return differences;
}

}  // namespace parity
