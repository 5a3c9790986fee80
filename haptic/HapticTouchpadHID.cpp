#include "haptic/HapticTouchpadHID.h"

#include "haptic/HapticDiscovery.h"
#include "log/ILog.h"

namespace vela {
namespace {

constexpr USAGE USAGE_INTENSITY = 0x0023;
constexpr USHORT kWholeCollection = 0;

bool FindIntensity(const CHIDInformation& information, const char* functionName,
                   HIDP_VALUE_CAPS& caps) {
    if (information.GetFeatureValueCaps(USAGE_INTENSITY, caps)) return true;
    GetLogger()->Log(kLogWarning, functionName,
                     "GetValueCaps for HidP_Feature, USAGE_INTENSITY failed");
    return false;
}

// Called right after the failed platform call. For a call that returns a status the line still
// carries the thread's last error.
void LogFailure(const char* functionName, const char* call) {
    const auto error = static_cast<int>(GetLastError());
    GetLogger()->Log(kLogError, functionName, "%s failed, GetLastError(%d).", call, error);
}

}  // namespace

// The feature report with the intensity, as read from the device.
struct CHapticTouchpadHID::IntensityReport {
    HIDP_VALUE_CAPS caps{};
    std::vector<BYTE> bytes;

    PCHAR Data() { return reinterpret_cast<PCHAR>(bytes.data()); }
    ULONG Length() const { return static_cast<ULONG>(bytes.size()); }
};

HidDeviceFilterList CHapticTouchpadHID::GetHidDeviceFilters() {
    return HapticDiscovery().GetHidDeviceFilters();
}

HidCapUsagePageList CHapticTouchpadHID::GetValueCapUsagePages() {
    return HapticDiscovery().GetValueCapUsagePages();
}

HidCapUsagePageList CHapticTouchpadHID::GetButtonCapUsagePages() {
    return HapticDiscovery().GetButtonCapUsagePages();
}

std::uint32_t CHapticTouchpadHID::Initialize(
    const std::shared_ptr<const CHIDInformation>& information) {
    constexpr const char* kFunction = "Initialize";
    ILog* const log = GetLogger();
    if (information == nullptr) {
        log->Log(kLogWarning, kFunction, "Initialize failed, HID info is null pointer.");
        return kHidFailed;
    }
    if (initialized_) {
        log->Log(kLogInfo, kFunction, "Re-initialize, return succeeded immediately.");
        return kHidOpen;
    }
    HIDP_VALUE_CAPS caps{};
    if (!FindIntensity(*information, kFunction, caps)) return kHidFailed;

    // Feature reports need neither read nor write access; the system holds precision touchpads
    // exclusively and would refuse both.
    const HANDLE device =
        CreateFileW(information->devicePath.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, 0, nullptr);
    if (device == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        log->Log(kLogError, kFunction, "Initialize failed, CreateFile failed GetLastError(%d).",
                 static_cast<int>(error));
        return error == ERROR_SHARING_VIOLATION ? kHidHeldByOther : kHidFailed;
    }
    information_ = information;
    device_ = device;
    initialized_ = true;
    log->Log(kLogInfo, kFunction,
             "================= CHapticTouchpadHID initialize succeeded =================");
    return kHidOpen;
}

bool CHapticTouchpadHID::Uninitialize() {
    if (!initialized_) return false;
    if (device_ != nullptr) CloseHandle(device_);
    device_ = nullptr;
    initialized_ = false;
    information_.reset();
    GetLogger()->Log(kLogInfo, "Uninitialize", "CHapticTouchpadHID Uninitialize succeeded.");
    return true;
}

bool CHapticTouchpadHID::ReadIntensityReport(const char* functionName, IntensityReport& report) {
    if (!initialized_ || !FindIntensity(*information_, functionName, report.caps)) return false;
    report.bytes.resize(information_->caps.FeatureReportByteLength);
    report.bytes[0] = report.caps.ReportID;
    if (HidD_GetFeature(device_, report.bytes.data(), report.Length())) return true;
    LogFailure(functionName, "HidD_GetFeature");
    return false;
}

bool CHapticTouchpadHID::SetIntensityLevel(std::uint32_t level) {
    constexpr const char* kFunction = "SetIntensityLevel";
    // The report is read first, so that its other fields keep the device's values.
    IntensityReport report;
    if (!ReadIntensityReport(kFunction, report)) return false;
    if (HidP_SetUsageValue(HidP_Feature, report.caps.UsagePage, kWholeCollection, USAGE_INTENSITY,
                           level, information_->preparsedData, report.Data(),
                           report.Length()) < 0) {
        LogFailure(kFunction, "HidP_SetUsageValue");
        return false;
    }
    if (!HidD_SetFeature(device_, report.bytes.data(), report.Length())) {
        LogFailure(kFunction, "HidD_SetFeature");
        return false;
    }
    GetLogger()->Log(kLogInfo, kFunction, "CHapticTouchpadHID SetIntensityLevel(%d) succeeded.",
                     static_cast<int>(level));
    return true;
}

std::uint32_t CHapticTouchpadHID::GetIntensityLevel() {
    constexpr const char* kFunction = "GetIntensityLevel";
    IntensityReport report;
    if (!ReadIntensityReport(kFunction, report)) return 0;
    ULONG level = 0;
    if (HidP_GetUsageValue(HidP_Feature, report.caps.UsagePage, kWholeCollection, USAGE_INTENSITY,
                           &level, information_->preparsedData, report.Data(),
                           report.Length()) < 0) {
        LogFailure(kFunction, "HidP_GetUsageValue");
        return 0;
    }
    GetLogger()->Log(kLogInfo, kFunction, "CHapticTouchpadHID GetIntensityLevel(%d) succeeded.",
                     static_cast<int>(level));
    return level;
}

}  // namespace vela
