#include "hid/Examination.h"

#include "hid/CapabilityCatalogue.h"

namespace vela {
namespace {

Verdict Read(const FileHandle& device, Examination& read) {
    if (!device.IsValid()) return Verdict::kNotOpened;
    if (!HidD_GetPreparsedData(device.Get(), &read.preparsedData)) return Verdict::kNotRead;
    read.attributes.Size = sizeof(read.attributes);
    if (!HidD_GetAttributes(device.Get(), &read.attributes)) return Verdict::kNotRead;
    if (HidP_GetCaps(read.preparsedData, &read.caps) < 0) return Verdict::kNoCaps;
    return Verdict::kMatches;
}

Verdict MatchFilters(const HidDeviceFilterList& filters, const Examination& read) {
    Verdict verdict = Verdict::kOtherCollection;
    for (const HidDeviceFilter& filter : filters) {
        if (filter.UsagePage != read.caps.UsagePage || filter.Usage != read.caps.Usage) continue;
        if (filter.VendorID == read.attributes.VendorID || filter.VendorID == 0) {
            return Verdict::kMatches;
        }
        verdict = Verdict::kOtherVendor;
    }
    return verdict;
}

Verdict FillCatalogue(IDiscoveryQuery& query, Examination& read) {
    if (!FillValueCapUsagePages(&query, read.caps, read.preparsedData, read.valueCapsMap)) {
        return Verdict::kNoWantedValueCap;
    }
    if (!FillButtonCapUsagePages(&query, read.caps, read.preparsedData, read.buttonCapsMap)) {
        return Verdict::kNoWantedButtonCap;
    }
    return Verdict::kMatches;
}

}  // namespace

FileHandle OpenForExamination(const std::wstring& path) {
    return FileHandle(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
}

Examination Examine(IDiscoveryQuery& query, const FileHandle& device) {
    Examination examination;
    Verdict& verdict = examination.verdict;
    verdict = Read(device, examination);
    if (verdict == Verdict::kMatches) {
        verdict = MatchFilters(query.GetHidDeviceFilters(), examination);
    }
    if (verdict == Verdict::kMatches) verdict = FillCatalogue(query, examination);
    return examination;
}

}  // namespace vela
