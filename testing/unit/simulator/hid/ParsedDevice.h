// A descriptor's top-level collection with the platform's HidP functions as members.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/ReportDescriptor.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace simulator::hid {

using Bytes = std::vector<std::uint8_t>;
using virtual_touchpad::CollectionKind;
using virtual_touchpad::kConstant;
using virtual_touchpad::kDataArray;
using virtual_touchpad::kDataVariable;
using virtual_touchpad::ReportDescriptorBuilder;
using Main = virtual_touchpad::MainItem;

constexpr USAGE kPage = 0xFF80;
constexpr USAGE kOtherPage = 0xFF81;

// Returns an open top-level collection. ParsedDevice closes it, so a test only states its content.
inline ReportDescriptorBuilder Application(USAGE page = kPage, USAGE usage = 0x80) {
    ReportDescriptorBuilder builder;
    builder.UsagePage(page).Usage(usage).Collection(CollectionKind::Application);
    return builder;
}

// Returns four byte-sized slots for usages 0x01 to 0x06; index 1 means usage 0x01.
inline ReportDescriptorBuilder Slots(std::uint32_t logicalMinimum = 1) {
    return Application()
        .LogicalMinimum(logicalMinimum)
        .LogicalMaximum(logicalMinimum + 5)
        .ReportSize(8)
        .ReportCount(4)
        .UsageMinimum(0x01)
        .UsageMaximum(0x06)
        .Main(Main::Output, kDataArray);
}

struct UsagesResult {
    NTSTATUS status;
    std::vector<USAGE> usages;
    ULONG length;
};

class ParsedDevice {
 public:
    explicit ParsedDevice(ReportDescriptorBuilder open)
        : ParsedDevice(open.EndCollection().Bytes()) {}
    explicit ParsedDevice(const Bytes& descriptor, std::size_t collection = 0)
        : preparsed_(AllocatePreparsedData(ParseReportDescriptor(descriptor).at(collection))) {}
    ParsedDevice(const ParsedDevice&) = delete;
    ParsedDevice& operator=(const ParsedDevice&) = delete;
    ~ParsedDevice() { FreePreparsedData(preparsed_); }

    PHIDP_PREPARSED_DATA Preparsed() const { return preparsed_; }

    HIDP_CAPS Caps() const {
        HIDP_CAPS caps{};
        HidP_GetCaps(preparsed_, &caps);
        return caps;
    }
    std::vector<HIDP_VALUE_CAPS> ValueCaps(HIDP_REPORT_TYPE type) const {
        return List<HIDP_VALUE_CAPS>(type, HidP_GetValueCaps);
    }
    std::vector<HIDP_BUTTON_CAPS> ButtonCaps(HIDP_REPORT_TYPE type) const {
        return List<HIDP_BUTTON_CAPS>(type, HidP_GetButtonCaps);
    }
    std::vector<HIDP_LINK_COLLECTION_NODE> Nodes() const {
        ULONG length = Caps().NumberLinkCollectionNodes;
        std::vector<HIDP_LINK_COLLECTION_NODE> nodes(length);
        HidP_GetLinkCollectionNodes(nodes.data(), &length, preparsed_);
        return nodes;
    }
    ULONG MaxUsages(HIDP_REPORT_TYPE type, USAGE page = 0) const {
        return HidP_MaxUsageListLength(type, page, preparsed_);
    }

    Bytes EmptyReport(HIDP_REPORT_TYPE type) const {
        const HIDP_CAPS caps = Caps();
        const USHORT lengths[] = {caps.InputReportByteLength, caps.OutputReportByteLength,
                                  caps.FeatureReportByteLength};
        return Bytes(lengths[type]);
    }

    NTSTATUS SetValue(HIDP_REPORT_TYPE type, USAGE usage, ULONG value, Bytes& report,
                      USAGE page = kPage, USHORT link = 0) const {
        return HidP_SetUsageValue(type, page, link, usage, value, preparsed_, Chars(report),
                                  Length(report));
    }
    NTSTATUS GetValue(HIDP_REPORT_TYPE type, USAGE usage, ULONG& value, Bytes report,
                      USAGE page = kPage, USHORT link = 0) const {
        return HidP_GetUsageValue(type, page, link, usage, &value, preparsed_, Chars(report),
                                  Length(report));
    }
    // Returns the value of a usage that exists.
    ULONG Value(HIDP_REPORT_TYPE type, USAGE usage, const Bytes& report, USAGE page = kPage,
                USHORT link = 0) const {
        ULONG value = 0xDEADBEEF;
        GetValue(type, usage, value, report, page, link);
        return value;
    }

    // The result's `length` is the one that the call wrote.
    UsagesResult Set(HIDP_REPORT_TYPE type, std::vector<USAGE> usages, Bytes& report,
                     USAGE page = kPage, USHORT link = 0) const {
        return Change(HidP_SetUsages, type, std::move(usages), report, page, link);
    }
    UsagesResult Unset(HIDP_REPORT_TYPE type, std::vector<USAGE> usages, Bytes& report,
                       USAGE page = kPage, USHORT link = 0) const {
        return Change(HidP_UnsetUsages, type, std::move(usages), report, page, link);
    }
    UsagesResult Get(HIDP_REPORT_TYPE type, Bytes report, USAGE page = kPage, USHORT link = 0,
                     ULONG room = 64) const {
        std::vector<USAGE> usages(room);
        ULONG length = room;
        const NTSTATUS status = HidP_GetUsages(type, page, link, usages.data(), &length, preparsed_,
                                               Chars(report), Length(report));
        if (status == HIDP_STATUS_SUCCESS) usages.resize(length);
        return {status, usages, length};
    }

 private:
    static PCHAR Chars(Bytes& report) { return reinterpret_cast<PCHAR>(report.data()); }
    static ULONG Length(const Bytes& report) { return static_cast<ULONG>(report.size()); }

    template <typename Caps, typename Function>
    std::vector<Caps> List(HIDP_REPORT_TYPE type, Function function) const {
        USHORT length = 0;
        function(type, nullptr, &length, preparsed_);
        std::vector<Caps> caps(length);
        function(type, caps.data(), &length, preparsed_);
        return caps;
    }

    template <typename Function>
    UsagesResult Change(Function function, HIDP_REPORT_TYPE type, std::vector<USAGE> usages,
                        Bytes& report, USAGE page, USHORT link) const {
        auto length = static_cast<ULONG>(usages.size());
        const NTSTATUS status = function(type, page, link, usages.data(), &length, preparsed_,
                                         Chars(report), Length(report));
        return {status, usages, length};
    }

    PHIDP_PREPARSED_DATA preparsed_;
};

}  // namespace simulator::hid
