// velactl caps
#include <map>
#include <tuple>

#include "haptic/HapticDiscovery.h"
#include "hid/HIDDevicePaths.h"
#include "tools/velactl/Command.h"
#include "tools/velactl/HidCollections.h"
#include "tools/velactl/Text.h"
#include "touchpad/TouchpadDiscovery.h"

namespace velactl {
namespace {

constexpr const char* kReportTypes[] = {"input", "output", "feature"};

// Rows by report type, kind (values before buttons) and usage.
using Rows = std::map<std::tuple<int, int, USAGE>, Json>;

Json Common(int type, const char* kind, USAGE page, USAGE usage, UCHAR reportId) {
    return {{"report", kReportTypes[type]},
            {"kind", kind},
            {"page", Hex(page)},
            {"usage", Hex(usage)},
            {"reportId", reportId}};
}

// Report type and usage are taken from the key, as a record may be one of a range of usages.
template <typename Map, typename AddRow>
void ForEachEntry(const Map& map, AddRow addRow) {
    for (const auto& [key, caps] : map) {
        const auto usage = static_cast<USAGE>(std::stoul(key.substr(key.rfind(L'_') + 1)));
        for (const int type : {HidP_Input, HidP_Output, HidP_Feature}) {
            if (key == vela::MakeCapsKey(static_cast<std::uint32_t>(type), usage)) {
                addRow(type, usage, caps);
            }
        }
    }
}

Rows RowsOf(const vela::Examination& examination) {
    Rows rows;
    ForEachEntry(examination.valueCapsMap, [&](int type, USAGE usage, const HIDP_VALUE_CAPS& caps) {
        Json row = Common(type, "value", caps.UsagePage, usage, caps.ReportID);
        row["bits"] = caps.BitSize;
        row["count"] = caps.ReportCount;
        row["minimum"] = caps.LogicalMin;
        row["maximum"] = caps.LogicalMax;
        rows[{type, 0, usage}] = row;
    });
    ForEachEntry(examination.buttonCapsMap,
                 [&](int type, USAGE usage, const HIDP_BUTTON_CAPS& caps) {
                     Json row = Common(type, "button", caps.UsagePage, usage, caps.ReportID);
                     for (const char* const of : {"bits", "count", "minimum", "maximum"}) {
                         row[of] = nullptr;
                     }
                     rows[{type, 1, usage}] = row;
                 });
    return rows;
}

ExitCode ListCapabilities(Context& context, bool haptic) {
    context.Library();  // sets the folder of "Vela.ini"
    vela::TouchpadDiscovery touchpadQuery;
    vela::HapticDiscovery hapticQuery;
    vela::IDiscoveryQuery* query = &touchpadQuery;
    if (haptic) query = &hapticQuery;
    const auto collections = ExamineCollections(vela::GetHidDevicePathList(), *query);
    const HidCollection* const chosen = ChosenCollection(collections);
    if (chosen == nullptr) {
        throw Failure(haptic ? "no haptic touchpad found"
                             : "no touchpad found; \"velactl devices\" tells why not",
                      kNoTouchpad);
    }
    Json table = Json::array();
    for (const auto& [key, row] : RowsOf(chosen->examination)) table.push_back(row);
    context.Print(table);
    return kDone;
}

}  // namespace

Run DeclareCaps(CLI::App& arguments) {
    const auto haptic = std::make_shared<bool>(false);
    arguments.add_flag("--haptic", *haptic, "Of the haptic touchpad instead");
    return [haptic](Context& context) { return ListCapabilities(context, *haptic); };
}

}  // namespace velactl
