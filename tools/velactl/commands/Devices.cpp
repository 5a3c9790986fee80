// velactl devices
#include "haptic/HapticDiscovery.h"
#include "tools/velactl/Command.h"
#include "tools/velactl/HidCollections.h"
#include "tools/velactl/Text.h"
#include "touchpad/TouchpadDiscovery.h"

namespace velactl {
namespace {

class Choice {
 public:
    Choice(vela::IDiscoveryQuery& query, const char* name,
           const std::vector<HidCollection>& collections)
        : query_(query), name_(name), chosen_(ChosenCollection(collections, query)) {}

    // "chosen", or the reason against it; nothing for a collection of a quite different kind.
    std::string Verdict(const HidCollection& collection) const {
        if (collection.information == chosen_) return std::string("chosen as the ") + name_;
        const std::string reason = ReasonAgainst(collection, query_);
        return reason.empty() ? std::string("an earlier one is the ") + name_ : reason;
    }
    bool IsOfThisKind(const HidCollection& collection) const {
        const vela::HidDeviceFilter kind = query_.GetHidDeviceFilters().front();
        const HIDP_CAPS& caps = collection.information->caps;
        return caps.UsagePage == kind.UsagePage && caps.Usage == kind.Usage;
    }
    bool IsChosen(const HidCollection& collection) const {
        return collection.information == chosen_;
    }

 private:
    vela::IDiscoveryQuery& query_;
    const char* name_;
    std::shared_ptr<vela::CHIDInformation> chosen_;
};

ExitCode ListDevices(Context& context) {
    context.Library();  // whose "Vela.ini" counts
    const std::vector<HidCollection> collections = ListHidCollections();
    vela::TouchpadDiscovery touchpadQuery;
    vela::HapticDiscovery hapticQuery;
    const Choice haptic(hapticQuery, "haptic touchpad", collections);
    const Choice touchpad(touchpadQuery, "touchpad", collections);
    Json rows = Json::array();
    for (const HidCollection& collection : collections) {
        const vela::CHIDInformation& information = *collection.information;
        const Choice& judge = haptic.IsOfThisKind(collection) ? haptic : touchpad;
        rows.push_back({{"vendor", Hex(information.attributes.VendorID)},
                        {"product", Hex(information.attributes.ProductID)},
                        {"version", Hex(information.attributes.VersionNumber)},
                        {"page", Hex(information.caps.UsagePage)},
                        {"usage", Hex(information.caps.Usage)},
                        {"name", Utf8(collection.product)},
                        {"chosen", judge.IsChosen(collection)},
                        {"verdict", judge.Verdict(collection)},
                        {"path", Utf8(information.devicePath)}});
    }
    context.Print(rows);
    return kDone;
}

}  // namespace

Run DeclareDevices(CLI::App&) { return ListDevices; }

}  // namespace velactl
