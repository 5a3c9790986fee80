// The click mode, one value of a feature report. On the caller's thread, straight to the device.
#include "log/ILog.h"
#include "touchpad/TandrelHID.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {
namespace {

enum ClickMode : std::uint32_t { kClickModeOff = 0, kClickModeValue = 1 };

std::vector<BYTE> FeatureReport(const CHIDInformation& information, UCHAR reportId) {
    std::vector<BYTE> report(information.caps.FeatureReportByteLength);
    report[0] = reportId;
    return report;
}

PCHAR Chars(std::vector<BYTE>& report) { return reinterpret_cast<PCHAR>(report.data()); }

}  // namespace

bool CTandrelHID::SetClickMode(std::uint32_t mode, std::uint16_t value) {
    constexpr const char* kFunction = "SetClickMode";
    ILog* const log = GetLogger();
    const std::shared_ptr<const CHIDInformation> information = Information();
    if (!initialized_ || information == nullptr || information->caps.FeatureReportByteLength == 0) {
        return false;
    }
    HIDP_VALUE_CAPS caps{};
    if (!information->GetFeatureValueCaps(USAGE_DBLTAP_DURATION_MAX, caps)) {
        log->Log(kLogWarning, kFunction,
                 "GetValueCaps for HidP_Feature, USAGE_DBLTAP_DURATION_MAX failed");
        return false;
    }

    // Read before written, so that the report's other fields keep their values.
    std::vector<BYTE> report = FeatureReport(*information, caps.ReportID);
    const auto length = static_cast<ULONG>(report.size());
    const HANDLE device = device_;
    if (!HidD_GetFeature(device, report.data(), length)) {
        const auto error = static_cast<int>(GetLastError());
        log->Log(kLogError, kFunction, "HidD_GetFeature failed, the last error(% d)", error);
        return false;
    }

    NTSTATUS status = HIDP_STATUS_SUCCESS;
    if (mode == kClickModeOff || mode == kClickModeValue) {
        status = HidP_SetUsageValue(HidP_Feature, caps.UsagePage, kNoLinkCollection,
                                    USAGE_DBLTAP_DURATION_MAX, mode == kClickModeOff ? 0 : value,
                                    information->preparsedData, Chars(report), length);
    }
    bool written = false;
    if (status < 0) {
        log->Log(kLogError, kFunction, "HidP_SetUsageValue failed, the status (%x)",
                 static_cast<unsigned>(status));
    } else if (!HidD_SetFeature(device, report.data(), length)) {
        const auto error = static_cast<int>(GetLastError());
        log->Log(kLogError, kFunction, "HidD_SetFeature failed, the last error (%d)", error);
    } else {
        written = true;
    }
    // Marks the end of the attempt, whatever came of it.
    log->Log(kLogInfo, kFunction, "SetClickMode (%d, %d) completed.", static_cast<int>(mode),
             value);
    return written;
}

bool CTandrelHID::GetClickMode() {
    constexpr const char* kFunction = "GetClickMode";
    ILog* const log = GetLogger();
    const std::shared_ptr<const CHIDInformation> information = Information();
    if (!initialized_ || information == nullptr || information->caps.FeatureReportByteLength == 0) {
        return false;
    }
    HIDP_VALUE_CAPS caps{};
    if (!information->GetFeatureValueCaps(USAGE_DBLTAP_DURATION_MAX, caps)) {
        log->Log(kLogWarning, kFunction,
                 "GetClickMode GetValueCaps for HidP_Feature, USAGE_DBLTAP_DURATION_MAX failed");
        return false;
    }

    std::vector<BYTE> report = FeatureReport(*information, caps.ReportID);
    const auto length = static_cast<ULONG>(report.size());
    if (!HidD_GetFeature(device_, report.data(), length)) {
        const auto error = static_cast<int>(GetLastError());
        log->Log(kLogError, kFunction, "HidD_GetFeature failed, the last error (%d)", error);
        return false;
    }
    ULONG value = 0;
    const NTSTATUS status = HidP_GetUsageValue(HidP_Feature, caps.UsagePage, kNoLinkCollection,
                                               USAGE_DBLTAP_DURATION_MAX, &value,
                                               information->preparsedData, Chars(report), length);
    if (status < 0) {
        log->Log(kLogError, kFunction, "HidP_GetUsageValue failed, the status (%x)",
                 static_cast<unsigned>(status));
        return false;
    }
    log->Log(kLogInfo, kFunction, "GetClickMode (%d) succeed.", static_cast<int>(value));
    return value != 0;
}

}  // namespace vela
