#include "testing/simulator/DevicePaths.h"

#include <cstdio>

namespace simulator {
namespace {

template <typename... Values>
std::string Format(const char* format, Values... values) {
    char text[128];
    const int length = std::snprintf(text, sizeof text, format, values...);
    return {text, static_cast<std::size_t>(length)};
}

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

std::string CollectionSuffix(std::size_t collection) {
    return collection == 0 ? "" : Format("&col%02zu", collection);
}

}  // namespace

std::string GuidText(const GUID& guid) {
    std::string text = Format("{%08x-%04x-%04x-", guid.Data1, guid.Data2, guid.Data3);
    for (int i = 0; i < 8; ++i) text += (i == 2 ? "-" : "") + Format("%02x", guid.Data4[i]);
    return text + "}";
}

std::wstring InterfacePath(const DeviceDescription& description, std::size_t device,
                           std::size_t collection) {
    if (description.path.empty()) {
        return Wide(
            Format("\\\\?\\hid#vid_%04x&pid_%04x", description.vendorId, description.productId) +
            CollectionSuffix(collection) +
            Format("#%zx&0&%04zx#", device, collection == 0 ? 0 : collection - 1) +
            GuidText(kHidInterfaceClass));
    }
    // The collection suffix ends the hardware id, the part between the first two separators.
    std::wstring path = description.path;
    const std::size_t first = path.find(L'#');
    const std::size_t second =
        first == std::wstring::npos ? std::wstring::npos : path.find(L'#', first + 1);
    return path.insert(second == std::wstring::npos ? path.size() : second,
                       Wide(CollectionSuffix(collection)));
}

}  // namespace simulator
