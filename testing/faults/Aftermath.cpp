#include "testing/faults/Aftermath.h"

#include <algorithm>
#include <thread>

#include "include/VelaAgent.h"
#include "testing/faults/HostLog.h"
#include "testing/faults/IdleThreads.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace faults {
namespace {

using namespace virtual_touchpad::events;
using simulator::Machine;

// Returns a directory beside the run's own.
std::filesystem::path SecondLogDirectory(const ScriptFixture& fixture) {
    return fixture.LogDirectory().parent_path() / "second" / "log";
}

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::size_t CountMade(const std::vector<WatchedCall>& calls, const std::string& function,
                      bool failed) {
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(), [&](const WatchedCall& call) {
            return call.function == function && call.failed == failed;
        }));
}

// Counts the preparsed data that scans got. A scan never frees that of a rejected interface.
std::size_t PreparsedDataOfScans(const std::vector<WatchedCall>& calls) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (calls[i].function != "HidD_GetPreparsedData" || calls[i].failed) continue;
        const WatchedCall* const before = Neighbour(calls, i, -1);
        const bool scans = before != nullptr && before->function == "CreateFileW" &&
                           !before->failed && before->step == calls[i].step;
        if (scans) ++count;
    }
    return count;
}

bool IsExcused(const std::string& handle, const std::vector<WatchedCall>& calls) {
    return std::any_of(calls.begin(), calls.end(), [&](const WatchedCall& call) {
        const bool closes =
            call.function == "CloseHandle" || call.function == "SetupDiDestroyDeviceInfoList";
        return closes && call.failed && call.arguments == handle;
    });
}

template <typename Number>
std::string Unless(Number seen, Number expected, const std::string& what) {
    if (seen == expected) return "";
    return "  " + std::to_string(seen) + " instead of " + std::to_string(expected) + " " + what +
           "\n";
}

std::string Unless(bool good, const std::string& what) { return good ? "" : "  " + what + "\n"; }

// Unplugs and plugs in again, which invalidates handles that the platform failed to close.
void FreeTouchpads(ScriptFixture& fixture) {
    for (simulator::Device* const touchpad : {&fixture.Touchpad(), &fixture.HapticTouchpad()}) {
        touchpad->ReleaseElsewhere();
        touchpad->SetWriteBehaviour(simulator::WriteBehaviour::Pend);
        touchpad->Unplug();
        touchpad->PlugIn();
    }
}

std::string LightTouchpad(simulator::Device& touchpad) {
    touchpad.ForgetOutputs();
    std::string problems = Unless(Init() == VELA_INIT_OPEN, "Init does not open the touchpad");
    SetVelaButtonPressCallback(kit::OnButtonPress);
    // The disabling gesture outlives its session, until a firmware state without it arrives.
    touchpad.SendInput(kit::InputReport({}, 0));
    WaitUntilOthersSleep();
    EnableFeature(1);
    Activate(VELA_ACTIVE);
    for (std::uint32_t button = 0; button < 4; ++button) {
        EnableSingleButton(button, 1);
        SetButtonVisible(button, 1);
    }
    SetVelaBrightness(200);
    WaitUntilOthersSleep();
    constexpr std::uint8_t kLit = 200;
    const auto lights = kit::AllLitAt(kLit);
    const auto outputs = touchpad.Outputs();
    return problems + Unless(!outputs.empty() && outputs.back() == lights, "the lights stay dark");
}

std::string PressCamera(simulator::Device& touchpad) {
    kit::HostCallbacks::Reset();
    touchpad.SendInput(kit::InputReport({kCameraButton}));
    WaitUntilOthersSleep();
    const std::vector<std::string> expected{"press 0 1"};
    return Unless(kit::HostCallbacks::Calls() == expected, "a press is not reported");
}

std::string UseTouchpad(ScriptFixture& fixture) {
    simulator::Device& touchpad = fixture.Touchpad();
    std::string problems = LightTouchpad(touchpad);
    problems += PressCamera(touchpad);
    problems += Unless(SetClickMode(1, 77) == 1 && GetClickMode() == 1, "the click mode is lost");
    problems += Unless(UnInit() == 1, "UnInit finds no session");
    return problems + Unless(IsVelaPresent() == 1, "the touchpad is not present");
}

std::string UseHapticTouchpad() {
    std::string problems = Unless(InitHapticTP() == 1, "InitHapticTP does not open the touchpad");
    problems += Unless(SetHapticTPIntensityLevel(33) == 1, "the intensity cannot be set");
    problems += Unless(GetHapticTPIntensityLevel(), 33U, "is the intensity");
    return problems + Unless(UnInitHapticTP() == 1, "UnInitHapticTP finds no session");
}

}  // namespace

std::string Leftovers(ScriptFixture& fixture) {
    const Machine& machine = Machine::Get();
    const std::vector<WatchedCall> calls = fixture.Watch().Calls();
    std::string problems;
    std::size_t events = 0;
    for (const std::string& handle : machine.OpenHandles()) {
        if (StartsWith(handle, "event#")) ++events;
        // The agent keeps its handle of an existing mutex on purpose.
        const bool kept = StartsWith(handle, "event#") || StartsWith(handle, "mutex#");
        problems += Unless(kept || IsExcused(handle, calls), handle + " is still open");
    }
    problems += Unless(events, CountMade(calls, "CreateEventW", false), "events are open");

    const std::vector<std::string> lines = fixture.Events();
    const auto found = static_cast<std::size_t>(
        std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
            return line.find("} GetHIDInformation PID") != std::string::npos;
        }));
    problems += Unless(
        fixture.PreparsedDataInUse(),
        PreparsedDataOfScans(calls) - found + CountMade(calls, "HidD_FreePreparsedData", true),
        "blocks of preparsed data in use");
    problems += Unless(fixture.GlobalMemoryInUse(), CountMade(calls, "GlobalFree", true),
                       "blocks of global memory in use");
    for (const std::string& misuse : machine.Misuse()) problems += "  misuse: " + misuse + "\n";
    return problems;
}

std::string Reopen(ScriptFixture& fixture) {
    fixture.Watch().Stop();
    FreeTouchpads(fixture);
    const std::filesystem::path directory = SecondLogDirectory(fixture);
    std::filesystem::create_directories(directory);
    std::string problems;
    std::thread host([&] {
        InitLogger(directory.wstring().c_str());
        problems += UseTouchpad(fixture);
        problems += UseHapticTouchpad();
        WaitUntilOthersSleep();
        UnInitLogger();
    });
    host.join();
    for (const std::string& line : LoggedLines(directory)) {
        const bool trouble = StartsWith(line, "{ERROR") || StartsWith(line, "{WARNING");
        problems += Unless(!trouble, "logged afterwards: " + line);
    }
    return problems;
}

bool HeartbeatWasStarted(const ScriptFixture& fixture) {
    constexpr const char* kCreated = "{INFO @ HeartbeatThread} HeartbeatThread created.";
    for (const auto& directory : {fixture.LogDirectory(), SecondLogDirectory(fixture)}) {
        const std::vector<std::string> lines = LoggedLines(directory);
        if (std::count(lines.begin(), lines.end(), kCreated) != 0) return true;
    }
    return false;
}

}  // namespace faults
