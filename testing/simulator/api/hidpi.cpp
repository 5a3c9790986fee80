// The platform's HID parser functions.
#include <hidpi.h>

#include <string>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/hid/CapabilityLists.h"
#include "testing/simulator/hid/PreparsedData.h"
#include "testing/simulator/hid/Usages.h"
#include "testing/simulator/hid/UsageValues.h"

namespace {

using simulator::Arguments;
using simulator::Count;
using simulator::Enter;
using simulator::Hex;
using simulator::NoteMisuse;
using simulator::hid::Collection;
using simulator::hid::FindPreparsedData;
using simulator::hid::ReportLayout;

std::string TypeName(HIDP_REPORT_TYPE type) {
    switch (type) {
        case HidP_Input:
            return "input";
        case HidP_Output:
            return "output";
        case HidP_Feature:
            return "feature";
    }
    return Count(static_cast<std::uint32_t>(type));
}

std::string UsageListText(const USAGE* list, const ULONG* length) {
    std::string text;
    for (ULONG i = 0; list != nullptr && length != nullptr && i < *length; ++i) {
        text += (i == 0 ? "" : " ") + Hex(list[i]);
    }
    return "[" + text + "]";
}

template <typename Number>
std::string CountBehind(const Number* length) {
    return length != nullptr ? Count(*length) : "null";
}

// Returns null for an unknown pointer and notes the misuse, except for a null pointer, which is no
// use after free.
std::shared_ptr<const Collection> InUse(const char* function, PHIDP_PREPARSED_DATA preparsed) {
    auto collection = FindPreparsedData(preparsed);
    if (collection == nullptr && preparsed != nullptr) {
        NoteMisuse(std::string(function) + ": preparsed data that is not in use");
    }
    return collection;
}

// Checks in the platform's order and then does `work` on the reports of the type and the bytes.
template <typename Work>
NTSTATUS OnReport(const char* function, HIDP_REPORT_TYPE type, PHIDP_PREPARSED_DATA preparsed,
                  PCHAR report, ULONG length, Work work) {
    if (length == 0) return HIDP_STATUS_INVALID_REPORT_LENGTH;
    const std::shared_ptr<const Collection> collection = InUse(function, preparsed);
    if (collection == nullptr) return HIDP_STATUS_INVALID_PREPARSED_DATA;
    const ReportLayout* reports = collection->FindReports(type);
    if (reports == nullptr) return HIDP_STATUS_INVALID_REPORT_TYPE;
    if (length != reports->LongestReport()) return HIDP_STATUS_INVALID_REPORT_LENGTH;
    return work(*reports, reinterpret_cast<std::uint8_t*>(report));
}

}  // namespace

extern "C" {

NTSTATUS NTAPI HidP_GetCaps(PHIDP_PREPARSED_DATA PreparsedData, PHIDP_CAPS Capabilities) {
    if (const auto fault = Enter(__func__, "")) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    const auto collection = InUse(__func__, PreparsedData);
    if (collection == nullptr) return HIDP_STATUS_INVALID_PREPARSED_DATA;
    *Capabilities = simulator::hid::CapsOf(*collection);
    return HIDP_STATUS_SUCCESS;
}

NTSTATUS NTAPI HidP_GetLinkCollectionNodes(PHIDP_LINK_COLLECTION_NODE LinkCollectionNodes,
                                           PULONG LinkCollectionNodesLength,
                                           PHIDP_PREPARSED_DATA PreparsedData) {
    if (const auto fault = Enter(__func__, CountBehind(LinkCollectionNodesLength))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    const auto collection = InUse(__func__, PreparsedData);
    if (collection == nullptr) return HIDP_STATUS_INVALID_PREPARSED_DATA;
    return simulator::hid::GetLinkCollectionNodes(*collection, LinkCollectionNodes,
                                                  *LinkCollectionNodesLength);
}

NTSTATUS NTAPI HidP_GetValueCaps(HIDP_REPORT_TYPE ReportType, PHIDP_VALUE_CAPS ValueCaps,
                                 PUSHORT ValueCapsLength, PHIDP_PREPARSED_DATA PreparsedData) {
    if (const auto fault =
            Enter(__func__, Arguments(TypeName(ReportType), CountBehind(ValueCapsLength)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    const auto collection = InUse(__func__, PreparsedData);
    if (collection == nullptr) return HIDP_STATUS_INVALID_PREPARSED_DATA;
    return simulator::hid::GetValueCaps(*collection, ReportType, ValueCaps, *ValueCapsLength);
}

NTSTATUS NTAPI HidP_GetButtonCaps(HIDP_REPORT_TYPE ReportType, PHIDP_BUTTON_CAPS ButtonCaps,
                                  PUSHORT ButtonCapsLength, PHIDP_PREPARSED_DATA PreparsedData) {
    if (const auto fault =
            Enter(__func__, Arguments(TypeName(ReportType), CountBehind(ButtonCapsLength)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    const auto collection = InUse(__func__, PreparsedData);
    if (collection == nullptr) return HIDP_STATUS_INVALID_PREPARSED_DATA;
    return simulator::hid::GetButtonCaps(*collection, ReportType, ButtonCaps, *ButtonCapsLength);
}

ULONG NTAPI HidP_MaxUsageListLength(HIDP_REPORT_TYPE ReportType, USAGE UsagePage,
                                    PHIDP_PREPARSED_DATA PreparsedData) {
    if (const auto fault = Enter(__func__, Arguments(TypeName(ReportType), Hex(UsagePage)))) {
        return fault->Failed<ULONG>(0);
    }
    const auto collection = InUse(__func__, PreparsedData);
    const ReportLayout* reports = collection ? collection->FindReports(ReportType) : nullptr;
    return reports != nullptr ? reports->MaxUsageListLength(UsagePage) : 0;
}

NTSTATUS NTAPI HidP_GetUsages(HIDP_REPORT_TYPE ReportType, USAGE UsagePage, USHORT LinkCollection,
                              PUSAGE UsageList, PULONG UsageLength,
                              PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                              ULONG ReportLength) {
    if (const auto fault =
            Enter(__func__, Arguments(TypeName(ReportType), Hex(UsagePage), Count(LinkCollection),
                                      CountBehind(UsageLength)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    return OnReport(__func__, ReportType, PreparsedData, Report, ReportLength,
                    [&](const ReportLayout& reports, std::uint8_t* bytes) {
                        return simulator::hid::GetUsages(reports, UsagePage, LinkCollection,
                                                         UsageList, *UsageLength, bytes);
                    });
}

NTSTATUS NTAPI HidP_SetUsages(HIDP_REPORT_TYPE ReportType, USAGE UsagePage, USHORT LinkCollection,
                              PUSAGE UsageList, PULONG UsageLength,
                              PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                              ULONG ReportLength) {
    if (const auto fault = Enter(
            __func__, Arguments(TypeName(ReportType), Hex(UsagePage), Count(LinkCollection),
                                UsageListText(UsageList, UsageLength), CountBehind(UsageLength)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    return OnReport(__func__, ReportType, PreparsedData, Report, ReportLength,
                    [&](const ReportLayout& reports, std::uint8_t* bytes) {
                        return simulator::hid::SetUsages(reports, UsagePage, LinkCollection,
                                                         UsageList, *UsageLength, bytes);
                    });
}

NTSTATUS NTAPI HidP_UnsetUsages(HIDP_REPORT_TYPE ReportType, USAGE UsagePage, USHORT LinkCollection,
                                PUSAGE UsageList, PULONG UsageLength,
                                PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                                ULONG ReportLength) {
    if (const auto fault = Enter(
            __func__, Arguments(TypeName(ReportType), Hex(UsagePage), Count(LinkCollection),
                                UsageListText(UsageList, UsageLength), CountBehind(UsageLength)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    return OnReport(__func__, ReportType, PreparsedData, Report, ReportLength,
                    [&](const ReportLayout& reports, std::uint8_t* bytes) {
                        return simulator::hid::UnsetUsages(reports, UsagePage, LinkCollection,
                                                           UsageList, *UsageLength, bytes);
                    });
}

NTSTATUS NTAPI HidP_GetUsageValue(HIDP_REPORT_TYPE ReportType, USAGE UsagePage,
                                  USHORT LinkCollection, USAGE Usage, PULONG UsageValue,
                                  PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                                  ULONG ReportLength) {
    if (const auto fault = Enter(__func__, Arguments(TypeName(ReportType), Hex(UsagePage),
                                                     Count(LinkCollection), Hex(Usage)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    return OnReport(__func__, ReportType, PreparsedData, Report, ReportLength,
                    [&](const ReportLayout& reports, std::uint8_t* bytes) {
                        return simulator::hid::GetUsageValue(reports, UsagePage, LinkCollection,
                                                             Usage, *UsageValue, bytes);
                    });
}

NTSTATUS NTAPI HidP_SetUsageValue(HIDP_REPORT_TYPE ReportType, USAGE UsagePage,
                                  USHORT LinkCollection, USAGE Usage, ULONG UsageValue,
                                  PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                                  ULONG ReportLength) {
    if (const auto fault =
            Enter(__func__, Arguments(TypeName(ReportType), Hex(UsagePage), Count(LinkCollection),
                                      Hex(Usage), Hex(UsageValue)))) {
        return fault->Failed<NTSTATUS>(HIDP_STATUS_INTERNAL_ERROR);
    }
    return OnReport(__func__, ReportType, PreparsedData, Report, ReportLength,
                    [&](const ReportLayout& reports, std::uint8_t* bytes) {
                        return simulator::hid::SetUsageValue(reports, UsagePage, LinkCollection,
                                                             Usage, UsageValue, bytes);
                    });
}

}  // extern "C"
