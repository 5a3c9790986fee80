#include "testing/parity/KnownDifferences.h"

#include <algorithm>

namespace parity {
namespace {

constexpr char kSuccess[] = "00110000";
constexpr char kUsageNotFound[] = "C0110004";

bool IsCallOf(const Difference& difference, const std::string& function) {
    return difference.simulator.call.compare(0, function.size() + 1, function + "(") == 0;
}
bool Sets(const Difference& difference) {
    return IsCallOf(difference, "HidP_SetUsages") || IsCallOf(difference, "HidP_SetUsageValue");
}
bool ChangesUsages(const Difference& difference) {
    return IsCallOf(difference, "HidP_SetUsages") || IsCallOf(difference, "HidP_UnsetUsages");
}
bool IsAboutUsages(const Difference& difference) {
    return ChangesUsages(difference) || IsCallOf(difference, "HidP_GetUsages");
}
bool IsAny(const Difference&) { return true; }

bool OnlyTheIdByteDiffers(const Difference& difference) {
    const Bytes simulator = BytesFromHex(difference.OfSimulator());
    const Bytes wine = BytesFromHex(difference.OfWine());
    return Sets(difference) && simulator.size() == wine.size() && wine.at(0) == 0 &&
           std::equal(simulator.begin() + 1, simulator.end(), wine.begin() + 1);
}

bool IsLengthOfAFailure(const Difference& difference) {
    return ChangesUsages(difference) && difference.OfWine().empty() &&
           difference.simulator.ValueOf("status") == difference.wine.ValueOf("status");
}

bool IsOnPageZero(const Difference& difference) {
    return difference.simulator.call.find(", 0000, link ") != std::string::npos &&
           difference.simulator.ValueOf("status") == kUsageNotFound;
}

bool HasUnset(const Difference& difference) {
    return IsCallOf(difference, "HidP_UnsetUsages") &&
           difference.wine.ValueOf("status") == kSuccess;
}

bool ReadsUsages(const Difference& difference) { return IsCallOf(difference, "HidP_GetUsages"); }

}  // namespace

bool KnownDifference::Covers(const Difference& difference) const {
    return (results.empty() || results.count(difference.result) != 0) &&
           (descriptors.empty() || descriptors.count(difference.descriptor) != 0) &&
           concerns(difference);
}

const std::vector<KnownDifference>& KnownDifferences() {
    static const std::vector<KnownDifference> known = {
        {"ReportIdOfAZeroedReport",
         "setting a usage puts the id of its report into a byte 0 of 0, as documented; Wine leaves "
         "the byte alone",
         {"report"},
         {},
         OnlyTheIdByteDiffers},
        {"LengthOfAFailedChange",
         "the length comes back as the index of the usage that failed, as documented; Wine leaves "
         "it alone",
         {"length"},
         {},
         IsLengthOfAFailure},
        {"PageZero",
         "no usage is on page 0: it means any page when capabilities are looked for, and nowhere "
         "else; Wine takes it for any page everywhere",
         {},
         {},
         IsOnPageZero},
        {"UnsettingInAnArray",
         "the slot that holds the usage is freed and the later ones move up, as Windows recorded "
         "of "
         "HidP_SetData; Wine clears the first that holds any usage",
         {"status", "length", "report"},
         {"ButtonTouchpadWithActiveArray", "ByteSlots", "ByteSlotsOfSingleUsages",
          "SlotsBesideBits", "SlotsWithOneIndexMoreThanUsages"},
         HasUnset},
        {"IndexOfASlot",
         "the logical minimum stands for an array's first usage, as on Windows, unless index 0 is "
         "left over; Wine counts from 1 always",
         {"status", "length", "report", "usages"},
         {"Keyboard", "SlotsFromAHighMinimum"},
         IsAboutUsages},
        {"SlotsOtherThanBytes",
         "a slot is as wide as the descriptor says; Wine reads and writes bytes",
         {"status", "length", "report", "usages"},
         {"ConsumerControl", "NibbleSlots"},
         IsAboutUsages},
        {"ButtonsLeftOver",
         "the last usage is of every field that is left over, as the HID standard has it; Wine "
         "reads the first of these only",
         {"usages"},
         {"FewerUsagesThanFields"},
         ReadsUsages},
        {"UsagesLeftOver",
         "usages for which no field is left are dropped; Wine lists them all the same",
         {},
         {"MoreUsagesThanFields"},
         IsAny},
        {"SinglesAndARange",
         "one item may have single usages and ranges, as the HID standard has it; Wine keeps one "
         "of them",
         {},
         {"SinglesAndARangeInOneItem"},
         IsAny},
        {"PageOfAShortUsage",
         "a usage without a page is of the page in force at the main item, as on Windows; Wine "
         "takes "
         "the one in force at the usage",
         {},
         {"PageAfterTheUsage"},
         IsAny},
        {"ConstantArrays",
         "a constant array has no capability, as recorded on Windows; Wine lists its usages",
         {},
         {"ConstantArray"},
         IsAny},
        {"MissingLimits",
         "a value without logical limits is 0 to 1, as recorded on Windows; Wine says 0 to 0",
         {},
         {"ValueWithoutLimits"},
         IsAny},
    };
    return known;
}

const KnownDifference* FindKnown(const Difference& difference) {
    for (const KnownDifference& known : KnownDifferences()) {
        if (known.Covers(difference)) return &known;
    }
    return nullptr;
}

}  // namespace parity
