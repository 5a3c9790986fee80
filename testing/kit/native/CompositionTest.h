// The fixture for tests of a single light report: the platform calls that compose it, the lines
// logged meanwhile, and its bytes.
#pragma once

#include <functional>
#include <sstream>

#include "testing/kit/native/TouchpadTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace kit {

// Return the recorded texts of calls on output reports.
inline std::string SetValueCall(unsigned usage, unsigned value) {
    std::ostringstream text;
    text << std::hex << "HidP_SetUsageValue(output, 0xff80, 0, 0x" << usage << ", 0x" << value
         << ")";
    return text.str();
}

inline std::string UsageListCall(const std::string& function, const std::vector<unsigned>& usages) {
    std::ostringstream text;
    text << function << "(output, 0xff80, 0, [";
    for (std::size_t i = 0; i < usages.size(); ++i) {
        text << (i == 0 ? "0x" : " 0x") << std::hex << usages[i];
    }
    text << "], " << std::dec << usages.size() << ")";
    return text.str();
}

inline std::string SetCall(const std::vector<unsigned>& usages) {
    return UsageListCall("HidP_SetUsages", usages);
}

inline std::string UnsetCall(unsigned usage) { return UsageListCall("HidP_UnsetUsages", {usage}); }

class CompositionTest : public TouchpadTest {
 protected:
    // No report shows this button: changing it composes a report with the same content.
    static constexpr std::uint32_t kUnknownButton = 9;

    // Opens and activates a session whose buttons are in their initial state.
    void OpenActive(const TouchpadLayout& layout = {}) {
        ASSERT_NO_FATAL_FAILURE(Open(layout));
        session_.Enable(true);
        session_.Activate(0);
    }

    // Returns one forced light report, which is written even when it equals the last one; empty
    // when it was not written. `breakPlatform` sets faults that last for this report only.
    Bytes Compose(const std::function<void()>& breakPlatform = nullptr) {
        WrittenReports(session_, *device_);
        machine_.ForgetCalls();
        if (breakPlatform) breakPlatform();
        EXPECT_TRUE(session_.SetButtonBreathing(kUnknownButton, false));
        calls_ = machine_.CallTexts({"HidP_SetUsageValue", "HidP_SetUsages", "HidP_UnsetUsages"});
        for (const char* const function :
             {"HidP_SetUsageValue", "HidP_SetUsages", "HidP_UnsetUsages"}) {
            machine_.StopFailing(function);
        }
        const std::vector<Bytes> written = WrittenReports(session_, *device_);
        return written.empty() ? Bytes{} : written.back();
    }

    // Returns the lines that the last composition logged. Stops the logger.
    std::vector<std::string> ComposeLog() {
        std::vector<std::string> texts;
        for (const LogLine& line : log_.Lines()) {
            if (line.message == "SetButtonBreathing for BUTTON_ID 9 (0)") texts.clear();
            if (line.function == "UpdateLedCtrl") texts.push_back(line.Text());
        }
        return texts;
    }

    void HideAllButtons() {
        for (std::uint32_t button = 0; button < 4; ++button) {
            session_.SetButtonVisible(button, false);
        }
    }

    // The platform calls of the last composition, in order.
    std::vector<std::string> calls_;
};

}  // namespace kit
