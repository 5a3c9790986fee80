#include "tools/velactl/HidCollections.h"

#include <algorithm>

#include "hid/CapabilityCatalogue.h"
#include "hid/FileHandle.h"
#include "hid/HIDDiscovery.h"
#include "tools/velactl/Text.h"

namespace velactl {
namespace {

HidCollection Read(const std::wstring& path) {
    HidCollection collection;
    collection.information = std::make_shared<vela::CHIDInformation>();
    vela::CHIDInformation& information = *collection.information;
    information.devicePath = path;
    // As discovery opens it: whoever holds the device, its attributes and descriptor can be read.
    const vela::FileHandle handle(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                              nullptr, OPEN_EXISTING, 0, nullptr));
    if (!handle.IsValid()) {
        collection.problem = "cannot be opened: " + SystemErrorText(GetLastError());
        return collection;
    }
    information.attributes.Size = sizeof(information.attributes);
    if (!HidD_GetPreparsedData(handle.Get(), &information.preparsedData) ||
        !HidD_GetAttributes(handle.Get(), &information.attributes)) {
        collection.problem = "cannot be read: " + SystemErrorText(GetLastError());
        return collection;
    }
    if (HidP_GetCaps(information.preparsedData, &information.caps) < 0) {
        collection.problem = "its report descriptor cannot be read";
    }
    wchar_t product[256] = {};
    if (HidD_GetProductString(handle.Get(), product, sizeof(product) - sizeof(product[0]))) {
        collection.product = product;
    }
    return collection;
}

}  // namespace

std::vector<HidCollection> ListHidCollections() {
    std::vector<HidCollection> collections;
    for (const std::wstring& path : vela::GetHidDevicePathList()) collections.push_back(Read(path));
    return collections;
}

std::string ReasonAgainst(const HidCollection& collection, vela::IDiscoveryQuery& query) {
    if (!collection.problem.empty()) return collection.problem;
    vela::CHIDInformation& information = *collection.information;
    const vela::HidDeviceFilterList filters = query.GetHidDeviceFilters();
    const auto any = [&](auto fits) { return std::any_of(filters.begin(), filters.end(), fits); };
    if (!any([&](const vela::HidDeviceFilter& filter) {
            return filter.UsagePage == information.caps.UsagePage &&
                   filter.Usage == information.caps.Usage;
        })) {
        return "another usage page or usage";
    }
    if (!any([&](const vela::HidDeviceFilter& filter) {
            return filter.VendorID == 0 || filter.VendorID == information.attributes.VendorID;
        })) {
        return "a vendor that is not looked for";
    }
    information.valueCapsMap.clear();
    information.buttonCapsMap.clear();
    if (!vela::FillValueCapUsagePages(&query, information.caps, information.preparsedData,
                                      information.valueCapsMap)) {
        return "no value capability on the wanted usage page";
    }
    if (!vela::FillButtonCapUsagePages(&query, information.caps, information.preparsedData,
                                       information.buttonCapsMap)) {
        return "no button capability on the wanted usage page";
    }
    return {};
}

std::shared_ptr<vela::CHIDInformation> ChosenCollection(
    const std::vector<HidCollection>& collections, vela::IDiscoveryQuery& query) {
    for (const HidCollection& collection : collections) {
        if (ReasonAgainst(collection, query).empty()) return collection.information;
    }
    return nullptr;
}

}  // namespace velactl
