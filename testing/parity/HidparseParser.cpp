// hidparse.sys, with which the HID class driver creates preparsed data, can be loaded into a
// process like a DLL, so parsing a descriptor requires no device.
#include "testing/parity/PreparsedData.h"

#include <stdexcept>
#include <string>

namespace parity {
namespace {

// The driver kit documents these records; the toolchain has no header for them.
struct CollectionDescription {
    USAGE usagePage;
    USAGE usage;
    UCHAR collectionNumber;
    UCHAR reserved[15];
    USHORT inputLength;
    USHORT outputLength;
    USHORT featureLength;
    USHORT preparsedDataLength;
    PHIDP_PREPARSED_DATA preparsedData;
};
struct DeviceDescription {
    CollectionDescription* collections;
    ULONG collectionCount;
    void* reportIds;
    ULONG reportIdCount;
    UCHAR debugInformation[64];
};

using GetDescription = NTSTATUS(NTAPI*)(const void* descriptor, ULONG length, int poolType,
                                        DeviceDescription* device);
using FreeDescription = void(NTAPI*)(DeviceDescription* device);

template <typename Function>
Function Import(const char* name) {
    static const HMODULE library = [] {
        wchar_t folder[MAX_PATH] = L"";
        GetSystemDirectoryW(folder, MAX_PATH);
        return LoadLibraryW((std::wstring(folder) + L"\\drivers\\hidparse.sys").c_str());
    }();
    const FARPROC address = library != nullptr ? GetProcAddress(library, name) : nullptr;
    if (address == nullptr) throw std::runtime_error("hidparse.sys cannot be loaded here");
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

PreparsedData Parse(const std::vector<std::uint8_t>& descriptor) {
    const auto get = Import<GetDescription>("HidP_GetCollectionDescription");
    const auto release = Import<FreeDescription>("HidP_FreeCollectionDescription");
    constexpr int kPagedPool = 1;
    auto device = std::make_unique<DeviceDescription>();
    const NTSTATUS status =
        get(descriptor.data(), static_cast<ULONG>(descriptor.size()), kPagedPool, device.get());
    if (status < 0 || device->collectionCount != 1) {
        throw std::runtime_error("hidparse.sys refuses the descriptor");
    }
    const PHIDP_PREPARSED_DATA preparsed = device->collections[0].preparsedData;
    const std::shared_ptr<DeviceDescription> owner(device.release(),
                                                   [release](DeviceDescription* description) {
                                                       release(description);
                                                       delete description;
                                                   });
    return PreparsedData(owner, preparsed);
}

}  // namespace parity
