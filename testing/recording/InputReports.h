// Composes the input reports of a device as its firmware would.
#pragma once

#include <string>

#include "hid/HidHeaders.h"
#include "tools/recording/HexText.h"

namespace recording {

class InputReports {
 public:
    // Throws std::runtime_error when the device cannot be read.
    explicit InputReports(const std::wstring& path);
    ~InputReports();
    InputReports(const InputReports&) = delete;
    InputReports& operator=(const InputReports&) = delete;

    // Returns the report with only this usage set, empty when no report has it.
    Bytes With(USAGE page, USAGE usage) const;

 private:
    PHIDP_PREPARSED_DATA preparsed_ = nullptr;
    HIDP_CAPS caps_{};
};

}  // namespace recording
