#include "testing/parity/CapsText.h"

namespace parity {
namespace {

std::string Numbers(std::initializer_list<unsigned> numbers) {
    std::string text;
    for (const unsigned number : numbers) {
        text += (text.empty() ? "" : " ") + std::to_string(number);
    }
    return text;
}

std::string Range(unsigned minimum, unsigned maximum, int digits = 4) {
    return Hex(minimum, digits) + "-" + Hex(maximum, digits);
}

template <typename Caps>
std::vector<Entry::Result> CommonResults(const Caps& caps) {
    std::vector<Entry::Result> results{
        {"page", Hex(caps.UsagePage, 4)},
        {"id", Hex(caps.ReportID, 2)},
        {"alias", Numbers({caps.IsAlias})},
        {"flags", Hex(caps.BitField, 3)},
        {"link", Numbers({caps.LinkCollection}) + " " + Hex(caps.LinkUsagePage, 4) +
                     Hex(caps.LinkUsage, 4)},
        {"absolute", Numbers({caps.IsAbsolute})},
    };
    if (caps.IsRange) {
        const auto& range = caps.Range;
        results.emplace_back("usages", Range(range.UsageMin, range.UsageMax));
        results.emplace_back("data indices", Range(range.DataIndexMin, range.DataIndexMax));
    } else {
        results.emplace_back("usage", Hex(caps.NotRange.Usage, 4));
        results.emplace_back("data index", Hex(caps.NotRange.DataIndex, 4));
    }
    results.emplace_back("strings", caps.IsStringRange
                                        ? Range(caps.Range.StringMin, caps.Range.StringMax)
                                        : Hex(caps.NotRange.StringIndex, 4));
    results.emplace_back("designators",
                         caps.IsDesignatorRange
                             ? Range(caps.Range.DesignatorMin, caps.Range.DesignatorMax)
                             : Hex(caps.NotRange.DesignatorIndex, 4));
    return results;
}

}  // namespace

std::vector<Entry::Result> ResultsOf(const HIDP_CAPS& caps) {
    return {
        {"usage", Hex(caps.UsagePage, 4) + Hex(caps.Usage, 4)},
        {"report lengths", Numbers({caps.InputReportByteLength, caps.OutputReportByteLength,
                                    caps.FeatureReportByteLength})},
        {"links", Numbers({caps.NumberLinkCollectionNodes})},
        {"button caps", Numbers({caps.NumberInputButtonCaps, caps.NumberOutputButtonCaps,
                                 caps.NumberFeatureButtonCaps})},
        {"value caps", Numbers({caps.NumberInputValueCaps, caps.NumberOutputValueCaps,
                                caps.NumberFeatureValueCaps})},
        {"data indices", Numbers({caps.NumberInputDataIndices, caps.NumberOutputDataIndices,
                                  caps.NumberFeatureDataIndices})},
    };
}

std::vector<Entry::Result> ResultsOf(const HIDP_LINK_COLLECTION_NODE& node) {
    return {
        {"usage", Hex(node.LinkUsagePage, 4) + Hex(node.LinkUsage, 4)},
        {"parent", Numbers({node.Parent})},
        {"children", Numbers({node.NumberOfChildren})},
        {"first child", Numbers({node.FirstChild})},
        {"next sibling", Numbers({node.NextSibling})},
        {"type", Numbers({node.CollectionType})},
        {"alias", Numbers({node.IsAlias})},
    };
}

std::vector<Entry::Result> ResultsOf(const HIDP_BUTTON_CAPS& caps) { return CommonResults(caps); }

std::vector<Entry::Result> ResultsOf(const HIDP_VALUE_CAPS& caps) {
    std::vector<Entry::Result> results = CommonResults(caps);
    results.emplace_back("null", Numbers({caps.HasNull}));
    results.emplace_back("bits", Numbers({caps.BitSize}));
    results.emplace_back("count", Numbers({caps.ReportCount}));
    results.emplace_back("unit", Hex(caps.Units, 8) + " " + Hex(caps.UnitsExp, 8));
    results.emplace_back("logical",
                         std::to_string(caps.LogicalMin) + " " + std::to_string(caps.LogicalMax));
    results.emplace_back("physical",
                         std::to_string(caps.PhysicalMin) + " " + std::to_string(caps.PhysicalMax));
    return results;
}

}  // namespace parity
