#include "touchpad/ClickMode.h"

#include <vector>

#include "log/ILog.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {
namespace {

enum ClickMode : std::uint32_t { kClickModeOff = 0, kClickModeValue = 1 };

// The feature report with the click mode. Fields beside it keep the values that were read.
class FeatureReport {
 public:
    FeatureReport(OpenTouchpad& touchpad, const HIDP_VALUE_CAPS& caps)
        : touchpad_(touchpad),
          usagePage_(caps.UsagePage),
          bytes_(touchpad.information->caps.FeatureReportByteLength) {
        bytes_[0] = caps.ReportID;
    }

    bool Read() {
        return touchpad_.handle.Use([this](HANDLE device) {
            return HidD_GetFeature(device, bytes_.data(), Length()) != FALSE;
        });
    }
    bool Write() {
        return touchpad_.handle.Use([this](HANDLE device) {
            return HidD_SetFeature(device, bytes_.data(), Length()) != FALSE;
        });
    }
    NTSTATUS SetValue(ULONG value) {
        return HidP_SetUsageValue(HidP_Feature, usagePage_, kNoLinkCollection,
                                  USAGE_DBLTAP_DURATION_MAX, value,
                                  touchpad_.information->preparsedData, Chars(), Length());
    }
    NTSTATUS GetValue(ULONG& value) {
        return HidP_GetUsageValue(HidP_Feature, usagePage_, kNoLinkCollection,
                                  USAGE_DBLTAP_DURATION_MAX, &value,
                                  touchpad_.information->preparsedData, Chars(), Length());
    }

 private:
    PCHAR Chars() { return reinterpret_cast<PCHAR>(bytes_.data()); }
    ULONG Length() const { return static_cast<ULONG>(bytes_.size()); }

    OpenTouchpad& touchpad_;
    const USAGE usagePage_;
    std::vector<BYTE> bytes_;
};

bool HasFeatureReports(const OpenTouchpad& touchpad) {
    return touchpad.information != nullptr &&
           touchpad.information->caps.FeatureReportByteLength != 0;
}

// Sets the value and writes the report. Logs a failure of either and returns false.
bool WriteMode(FeatureReport& report, std::uint32_t mode, std::uint16_t value) {
    constexpr const char* kFunction = "SetClickMode";
    NTSTATUS status = HIDP_STATUS_SUCCESS;
    if (mode == kClickModeOff || mode == kClickModeValue) {
        status = report.SetValue(mode == kClickModeOff ? 0 : value);
    }
    if (status < 0) {
        GetLogger()->Log(kLogError, kFunction, "HidP_SetUsageValue failed, the status (%x)",
                         static_cast<unsigned>(status));
        return false;
    }
    if (report.Write()) return true;
    const auto error = static_cast<int>(GetLastError());
    GetLogger()->Log(kLogError, kFunction, "HidD_SetFeature failed, the last error (%d)", error);
    return false;
}

}  // namespace

bool SetClickMode(OpenTouchpad& touchpad, std::uint32_t mode, std::uint16_t value) {
    constexpr const char* kFunction = "SetClickMode";
    ILog* const log = GetLogger();
    if (!HasFeatureReports(touchpad)) return false;
    HIDP_VALUE_CAPS caps{};
    if (!touchpad.information->GetFeatureValueCaps(USAGE_DBLTAP_DURATION_MAX, caps)) {
        log->Log(kLogWarning, kFunction,
                 "GetValueCaps for HidP_Feature, USAGE_DBLTAP_DURATION_MAX failed");
        return false;
    }
    FeatureReport report(touchpad, caps);
    if (!report.Read()) {
        const auto error = static_cast<int>(GetLastError());
        log->Log(kLogError, kFunction, "HidD_GetFeature failed, the last error(% d)", error);
        return false;
    }
    const bool written = WriteMode(report, mode, value);
    // The line marks the end of the attempt, successful or not.
    log->Log(kLogInfo, kFunction, "SetClickMode (%d, %d) completed.", static_cast<int>(mode),
             value);
    return written;
}

bool GetClickMode(OpenTouchpad& touchpad) {
    constexpr const char* kFunction = "GetClickMode";
    ILog* const log = GetLogger();
    if (!HasFeatureReports(touchpad)) return false;
    HIDP_VALUE_CAPS caps{};
    if (!touchpad.information->GetFeatureValueCaps(USAGE_DBLTAP_DURATION_MAX, caps)) {
        log->Log(kLogWarning, kFunction,
                 "GetClickMode GetValueCaps for HidP_Feature, USAGE_DBLTAP_DURATION_MAX failed");
        return false;
    }
    FeatureReport report(touchpad, caps);
    if (!report.Read()) {
        const auto error = static_cast<int>(GetLastError());
        log->Log(kLogError, kFunction, "HidD_GetFeature failed, the last error (%d)", error);
        return false;
    }
    ULONG value = 0;
    const NTSTATUS status = report.GetValue(value);
    if (status < 0) {
        log->Log(kLogError, kFunction, "HidP_GetUsageValue failed, the status (%x)",
                 static_cast<unsigned>(status));
        return false;
    }
    log->Log(kLogInfo, kFunction, "GetClickMode (%d) succeed.", static_cast<int>(value));
    return value != 0;
}

}  // namespace vela
