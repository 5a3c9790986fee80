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
std::vector<Entry::Answer> CommonAnswers(const Caps& caps) {
    std::vector<Entry::Answer> answers{
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
        answers.emplace_back("usages", Range(range.UsageMin, range.UsageMax));
        answers.emplace_back("data indices", Range(range.DataIndexMin, range.DataIndexMax));
    } else {
        answers.emplace_back("usage", Hex(caps.NotRange.Usage, 4));
        answers.emplace_back("data index", Hex(caps.NotRange.DataIndex, 4));
    }
    answers.emplace_back("strings", caps.IsStringRange
                                        ? Range(caps.Range.StringMin, caps.Range.StringMax)
                                        : Hex(caps.NotRange.StringIndex, 4));
    answers.emplace_back("designators",
                         caps.IsDesignatorRange
                             ? Range(caps.Range.DesignatorMin, caps.Range.DesignatorMax)
                             : Hex(caps.NotRange.DesignatorIndex, 4));
    return answers;
}

}  // namespace

std::vector<Entry::Answer> AnswersOf(const HIDP_CAPS& caps) {
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

std::vector<Entry::Answer> AnswersOf(const HIDP_BUTTON_CAPS& caps) { return CommonAnswers(caps); }

std::vector<Entry::Answer> AnswersOf(const HIDP_VALUE_CAPS& caps) {
    std::vector<Entry::Answer> answers = CommonAnswers(caps);
    answers.emplace_back("null", Numbers({caps.HasNull}));
    answers.emplace_back("bits", Numbers({caps.BitSize}));
    answers.emplace_back("count", Numbers({caps.ReportCount}));
    answers.emplace_back("unit", Hex(caps.Units, 8) + " " + Hex(caps.UnitsExp, 8));
    answers.emplace_back("logical",
                         std::to_string(caps.LogicalMin) + " " + std::to_string(caps.LogicalMax));
    answers.emplace_back("physical",
                         std::to_string(caps.PhysicalMin) + " " + std::to_string(caps.PhysicalMax));
    return answers;
}

}  // namespace parity
