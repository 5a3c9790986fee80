#include "testing/recording/InputReports.h"

#include <stdexcept>
#include <vector>

#include "platform/FileHandle.h"

namespace recording {

InputReports::InputReports(const std::wstring& path) {
    const vela::FileHandle device(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                              nullptr, OPEN_EXISTING, 0, nullptr));
    if (!device.IsValid() || !HidD_GetPreparsedData(device.Get(), &preparsed_) ||
        HidP_GetCaps(preparsed_, &caps_) < 0) {
        throw std::runtime_error("the device's capabilities cannot be read");
    }
}

InputReports::~InputReports() { HidD_FreePreparsedData(preparsed_); }

// Not every parser fills the report id in, so it is taken from the capability.
Bytes InputReports::With(USAGE page, USAGE usage) const {
    USHORT count = caps_.NumberInputButtonCaps;
    std::vector<HIDP_BUTTON_CAPS> buttons(count);
    if (count == 0 || HidP_GetButtonCaps(HidP_Input, buttons.data(), &count, preparsed_) < 0) {
        return {};
    }
    for (const HIDP_BUTTON_CAPS& caps : buttons) {
        const USAGE last = caps.IsRange ? caps.Range.UsageMax : caps.Range.UsageMin;
        if (caps.UsagePage != page || usage < caps.Range.UsageMin || usage > last) continue;
        Bytes report(caps_.InputReportByteLength);
        report[0] = caps.ReportID;
        ULONG length = 1;
        const NTSTATUS status =
            HidP_SetUsages(HidP_Input, page, 0, &usage, &length, preparsed_,
                           reinterpret_cast<PCHAR>(report.data()), caps_.InputReportByteLength);
        if (status >= 0) return report;
    }
    return {};
}

}  // namespace recording
