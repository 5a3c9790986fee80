#include "hid/HIDDiscovery.h"

#include "hid/Examination.h"
#include "hid/HIDDevicePaths.h"
#include "log/ILog.h"

namespace vela {
namespace {

void FillRecord(CHIDInformation& record, const std::wstring& path, Examination& examination) {
    record.devicePath = path;
    record.attributes = examination.attributes;
    record.caps = examination.caps;
    record.preparsedData = examination.preparsedData;
    record.valueCapsMap.swap(examination.valueCapsMap);
    record.buttonCapsMap.swap(examination.buttonCapsMap);
}

}  // namespace

// The preparsed data of a rejected interface stays allocated, a small block for each: only a record
// frees it, and only the chosen interface gets a record.
std::shared_ptr<CHIDInformation> ScanHIDInformation(IDiscoveryQuery* query) {
    auto record = std::make_shared<CHIDInformation>();
    if (query == nullptr) return record;
    for (const std::wstring& path : GetHidDevicePathList()) {
        const FileHandle device = OpenForExamination(path);
        Examination examination = Examine(*query, device);
        if (examination.verdict != Verdict::kMatches) continue;
        FillRecord(*record, path, examination);
        // The version number of a HID device is that of its firmware.
        GetLogger()->Log(kLogInfo, "ScanHIDInformation",
                         "GetHIDInformation PID (0x%x) FW version(0x%x).",
                         record->attributes.ProductID, record->attributes.VersionNumber);
        break;
    }
    return record;
}

}  // namespace vela
