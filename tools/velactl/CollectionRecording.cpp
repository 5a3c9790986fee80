#include "tools/velactl/CollectionRecording.h"

#include <windows.h>

#include <winioctl.h>

#include <hidclass.h>

#include "hid/Examination.h"
#include "tools/recording/CapabilityRecording.h"
#include "tools/velactl/Text.h"

namespace velactl {
namespace {

using recording::AnsweredBy;
using recording::CallRecord;

void AddAttributes(Json& json, HANDLE device, HIDD_ATTRIBUTES& attributes, CallRecord& calls) {
    attributes.Size = sizeof(attributes);
    const bool done = calls.Make("HidD_GetAttributes", AnsweredBy::kSystem,
                                 [&] { return HidD_GetAttributes(device, &attributes) != FALSE; });
    if (!done) return;
    json["attributes"] = {{"vendor", Hex(attributes.VendorID)},
                          {"product", Hex(attributes.ProductID)},
                          {"version", Hex(attributes.VersionNumber)}};
}

template <typename Get>
void AddString(Json& json, HANDLE device, const char* name, const char* call, Get get,
               CallRecord& calls) {
    wchar_t text[256] = {};
    const bool done = calls.Make(call, AnsweredBy::kDevice, [&] {
        return get(device, text, sizeof(text) - sizeof(text[0])) != FALSE;
    });
    if (done) json["strings"][name] = Utf8(text);
}

void AddCapabilities(Json& json, HANDLE device, CallRecord& calls) {
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    const bool done = calls.Make("HidD_GetPreparsedData", AnsweredBy::kSystem, [&] {
        return HidD_GetPreparsedData(device, &preparsed) != FALSE;
    });
    if (!done) return;
    json["capabilities"] = recording::RecordCapabilities(preparsed, calls);
    HidD_FreePreparsedData(preparsed);
}

// The class driver tells the length of the preparsed data, which HidD_GetPreparsedData does not.
void AddPreparsedBytes(Json& json, HANDLE device, CallRecord& calls) {
    HID_COLLECTION_INFORMATION information{};
    DWORD size = 0;
    const auto control = [&](DWORD code, void* output, std::size_t length) {
        return DeviceIoControl(device, code, nullptr, 0, output, static_cast<DWORD>(length), &size,
                               nullptr) != FALSE;
    };
    if (!calls.Make("IOCTL_HID_GET_COLLECTION_INFORMATION", AnsweredBy::kSystem, [&] {
            return control(IOCTL_HID_GET_COLLECTION_INFORMATION, &information, sizeof(information));
        })) {
        return;
    }
    recording::Bytes bytes(information.DescriptorSize);
    if (!calls.Make("IOCTL_HID_GET_COLLECTION_DESCRIPTOR", AnsweredBy::kSystem, [&] {
            return control(IOCTL_HID_GET_COLLECTION_DESCRIPTOR, bytes.data(), bytes.size());
        })) {
        return;
    }
    json["preparsedData"] = recording::Hex(bytes);
}

}  // namespace

Json RecordCollection(const std::wstring& path, bool (*wantsStrings)(std::uint16_t vendor)) {
    Json json;
    CallRecord calls;
    HANDLE opened = INVALID_HANDLE_VALUE;
    const bool isOpen = calls.Make("CreateFileW", AnsweredBy::kSystem, [&] {
        opened = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                             OPEN_EXISTING, 0, nullptr);
        return opened != INVALID_HANDLE_VALUE;
    });
    const vela::FileHandle device(opened);
    if (isOpen) {
        HIDD_ATTRIBUTES attributes{};
        AddAttributes(json, device.Get(), attributes, calls);
        if (json.contains("attributes") && wantsStrings(attributes.VendorID)) {
            AddString(json, device.Get(), "manufacturer", "HidD_GetManufacturerString",
                      HidD_GetManufacturerString, calls);
            AddString(json, device.Get(), "product", "HidD_GetProductString", HidD_GetProductString,
                      calls);
        }
        AddCapabilities(json, device.Get(), calls);
        AddPreparsedBytes(json, device.Get(), calls);
    }
    json["calls"] = calls.Calls();
    return json;
}

}  // namespace velactl
