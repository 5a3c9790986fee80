#include "tools/velactl/DeviceList.h"

#include "haptic/HapticDiscovery.h"
#include "tools/velactl/HidCollections.h"
#include "tools/velactl/Text.h"
#include "touchpad/TouchpadDiscovery.h"

namespace velactl {
namespace {

// The machine's collections, and the one that a kind of session chooses among them.
class Choice {
 public:
    Choice(vela::IDiscoveryQuery& query, const char* name, const std::vector<std::wstring>& paths)
        : kind_(query.GetHidDeviceFilters().front()),
          name_(name),
          collections_(ExamineCollections(paths, query)),
          chosen_(ChosenCollection(collections_)) {}

    const HidCollection& Collection(std::size_t index) const { return collections_[index]; }
    bool IsOfThisKind(const HidCollection& collection) const {
        const HIDP_CAPS& caps = collection.examination.caps;
        return caps.UsagePage == kind_.UsagePage && caps.Usage == kind_.Usage;
    }
    Json Row(const HidCollection& collection, Names names) const {
        const vela::Examination& examination = collection.examination;
        const bool isChosen = &collection == chosen_;
        const bool isNamed = names == Names::kOfAll || (names == Names::kOfTheChosen && isChosen);
        return {{"vendor", Hex(examination.attributes.VendorID)},
                {"product", Hex(examination.attributes.ProductID)},
                {"version", Hex(examination.attributes.VersionNumber)},
                {"page", Hex(examination.caps.UsagePage)},
                {"usage", Hex(examination.caps.Usage)},
                {"name", isNamed ? Json(Utf8(ReadProductString(collection))) : Json()},
                {"chosen", isChosen},
                {"verdict", Verdict(collection)},
                {"path", Utf8(collection.path)}};
    }

 private:
    std::string Verdict(const HidCollection& collection) const {
        if (&collection == chosen_) return std::string("chosen as the ") + name_;
        if (!collection.reasonAgainst.empty()) return collection.reasonAgainst;
        return std::string("an earlier one is the ") + name_;
    }

    vela::HidDeviceFilter kind_;
    const char* name_;
    std::vector<HidCollection> collections_;
    const HidCollection* chosen_;
};

}  // namespace

Json ListDevices(const std::vector<std::wstring>& paths, Names names) {
    vela::TouchpadDiscovery touchpadQuery;
    vela::HapticDiscovery hapticQuery;
    const Choice haptic(hapticQuery, "haptic touchpad", paths);
    const Choice touchpad(touchpadQuery, "touchpad", paths);
    Json rows = Json::array();
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const Choice& choice = haptic.IsOfThisKind(haptic.Collection(i)) ? haptic : touchpad;
        rows.push_back(choice.Row(choice.Collection(i), names));
    }
    return rows;
}

}  // namespace velactl
