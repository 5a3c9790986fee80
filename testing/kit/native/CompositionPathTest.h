// The four ways of composing the light report, and the log lines for a light that failed.
#pragma once

#include <ostream>

#include "testing/kit/native/CompositionTest.h"

namespace kit {

// HIDP_STATUS_USAGE_NOT_FOUND.
constexpr std::int32_t kUsageNotFound = static_cast<std::int32_t>(0xC0110004);

inline const std::string kValueFailed = "ERROR UpdateLedCtrl: HidP_SetUsageValue failed, status : ";
inline const std::string kNotFoundLine = kValueFailed + "-1072627708";
// A blank report's failures are logged with this number, whatever the status.
inline const std::string kBlankLine = kValueFailed + "1114112";

// All buttons are shown; shown with their lights on; hidden; or the session is not active.
enum class Path { Shown, Lit, Hidden, Blank };

inline std::ostream& operator<<(std::ostream& stream, Path path) {
    constexpr const char* kNames[] = {"shown", "lit", "hidden", "blank"};
    return stream << kNames[static_cast<int>(path)];
}

class CompositionPathTest : public CompositionTest {
 protected:
    // Opens a session in the state for this path, with chat breathing enabled.
    void OpenOn(Path path, const TouchpadLayout& layout = {}) {
        ASSERT_NO_FATAL_FAILURE(OpenAndLight(layout));
        session_.EnableButtonBreathing(2, true);
        if (path == Path::Hidden) HideAllButtons();
        if (path == Path::Blank) session_.Activate(2);
        if (path == Path::Lit) {
            for (std::uint32_t button = 0; button < 4; ++button) {
                session_.SetButtonLight(button, true);
            }
        }
    }
};

}  // namespace kit
