#include "testing/fuzz/CallFixture.h"

#include <fstream>
#include <optional>

#include "include/VelaAgent.h"
#include "testing/fuzz/FailingCalls.h"
#include "testing/fuzz/FuzzDevice.h"
#include "testing/fuzz/FuzzSessions.h"
#include "testing/fuzz/HostLog.h"
#include "testing/kit/HostCallbacks.h"

namespace fuzz {
namespace {

using kit::HostCallbacks;

const wchar_t* const kDeviceMutex = L"Global\\VelaDeviceMutex";

simulator::Machine& PreparedMachine(const TouchpadLayout& layout) {
    UseSessionFor(layout.productString);
    HostCallbacks::Reset();
    return EmptyMachine();
}

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

// Returns the last line of a log, except the heartbeat's: UnInit stops the heartbeat without
// waiting for it, so its last line may come later.
std::string LastLine(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string last;
    for (std::string line; std::getline(stream, line);) {
        if (!Contains(line, "{INFO @ HeartbeatThread} ")) last = line;
    }
    return last;
}

}  // namespace

CallFixture::CallFixture(const TouchpadLayout& layout)
    : model(layout), machine(PreparedMachine(layout)), touchpad(machine.Plug(Describe(layout))) {
    hapticTouchpad = machine.Plug(Describe(virtual_touchpad::HapticLayout{}));
}

CallFixture::~CallFixture() {
    UnInit();
    if (callsFail_) {
        Recover();
    } else if (model.IsTemporarilyDisabled() || model.GetBrightness() != 3) {
        // The temporary disable and the brightness outlive a session.
        PlugIn();
        HoldElsewhere(false);
        Init();
        Same(::Activate(0), model.Activate(0), "Activate at the end");
        Same(::Activate(4), model.Activate(4), "Activate at the end");
        ::SetVelaBrightness(3);
        model.SetBrightness(3);
        CompareAll("the end");
        UnInit();
    }
    ::SetVelaButtonPressCallback(nullptr);
    ::SetVelaStatusChangeCallback(nullptr);
    ::UnInitHapticTP();
    while (loggers_ > 0) UnInitLogger();
    CheckSame(machine.Misuse(), {}, "misuse of the platform");
}

void CallFixture::FailACall(FuzzInput& input) {
    callsFail_ = true;
    fuzz::FailACall(machine, input);
}

void CallFixture::Recover() {
    StopFailing(machine);
    touchpad->PlugIn();
    touchpad->ReleaseElsewhere();
    machine.ReleaseMutexElsewhere(kDeviceMutex);
    CheckSame(::Init(), 1, "Init after failures");
    Check(touchpad->WaitForPendingReads(), "the session after failures reads no input reports");
    CheckSame(::Activate(0), 1, "Activate after failures");
    CheckSame(::Activate(4), 1, "Activate after failures");
    ::SetVelaBrightness(3);
    CheckSame(::UnInit(), 1, "UnInit after failures");
    const std::optional<Bytes> lights = LastLights(*touchpad);
    if (lights) CheckSame(*lights, model.BlankReport(), "the lights after failures");
}

void CallFixture::CompareAll(const char* step) {
    if (callsFail_) return;
    for (const Bytes& report : model.TakeReports()) expectedReports_.push_back(report);
    const std::string at = std::string(" after ") + step;
    Check(touchpad->WaitForOutputs(expectedReports_.size()), "a report did not come" + at);
    CheckSame(touchpad->Outputs(), expectedReports_, "what the touchpad received" + at);
    CheckSame(HostCallbacks::Calls(), model.TakeCallbacks(), "what the host was told" + at);
    HostCallbacks::Reset();

    Same(::IsFeatureEnabled(), model.IsFeatureEnabled(), "IsFeatureEnabled");
    Same(::IsActivated(), model.IsActivated(), "IsActivated");
    Same(::GetVelaBrightness(), model.GetBrightness(), "GetVelaBrightness");
    Same(::IsChatBreathingEnabled(), model.IsChatBreathingEnabled(), "IsChatBreathingEnabled");
    for (std::uint32_t id = 0; id < 4; ++id) {
        Same(::IsSingleButtonEnabled(id), model.IsSingleButtonEnabled(id), "IsSingleButtonEnabled");
    }
}

void CallFixture::Init() {
    if (callsFail_) {
        ::Init();
        return;
    }
    const bool wasOpen = model.IsOpen();
    Same(::Init(), model.Init(), "Init");
    if (wasOpen || !model.IsOpen()) return;
    Check(touchpad->WaitForPendingReads(), "the session reads no input reports");
}

void CallFixture::UnInit() {
    if (callsFail_) {
        ::UnInit();
        return;
    }
    // Reports still queued might or might not be written beside those of the closing.
    const bool allWritten = WriteAllQueued();
    const bool canWrite = model.IsConnected();
    const Bytes lastReport = model.LastReport();
    Same(::UnInit(), model.UnInit(), "UnInit");
    model.TakeReports();
    if (canWrite) CompareClosing(lastReport, allWritten);
    touchpad->ForgetOutputs();
    expectedReports_.clear();
    CompareAll("UnInit");
}

bool CallFixture::WriteAllQueued() {
    if (!model.IsConnected()) return true;
    if (model.UpdateVelaState()) {
        Same(::UpdateVelaState(), 1, "UpdateVelaState");
    } else if (!model.IsDisabled()) {
        constexpr std::uint32_t kUnknownButton = 9;
        Same(::SetButtonBreathing(kUnknownButton, 0),
             model.SetButtonBreathing(kUnknownButton, false), "SetButtonBreathing");
    } else {
        return false;
    }
    CompareAll("writing all that was queued");
    return true;
}

// The closing writes blank reports, and the touchpad is dark afterwards. When the queue could not
// be flushed before, its last report may come first.
void CallFixture::CompareClosing(const Bytes& lastReport, bool allWereWritten) {
    std::vector<Bytes> closing = touchpad->Outputs();
    closing.erase(closing.begin(),
                  closing.begin() + static_cast<std::ptrdiff_t>(expectedReports_.size()));
    for (const Bytes& report : closing) {
        if (!allWereWritten && report == lastReport) continue;
        CheckSame(report, model.BlankReport(), "a report of the closing");
    }
    // This holds however late the writer wrote the earlier reports.
    const std::optional<Bytes> lights = LastLights(*touchpad);
    if (lights) CheckSame(*lights, model.BlankReport(), "the lights that the closing left");
}

void CallFixture::Send(std::uint8_t reportId, std::uint8_t buttons, std::uint8_t firmwareState) {
    if (callsFail_) touchpad->SendInput({reportId, buttons, firmwareState});
    if (callsFail_ || !model.IsOpen() || !model.IsConnected()) return;
    Check(touchpad->WaitForPendingReads(), "the session reads no input reports");
    touchpad->SendInput({reportId, buttons, firmwareState});
    Check(touchpad->WaitForPendingReads(), "the session asks for no further input report");
    std::vector<std::uint16_t> usages;
    for (unsigned bit = 0; bit < 8; ++bit) {
        if ((buttons >> bit & 1U) != 0) usages.push_back(static_cast<std::uint16_t>(0x40 + bit));
    }
    model.Receive(reportId, usages, firmwareState);
}

void CallFixture::Unplug() {
    touchpad->Unplug();
    model.Unplug();
}

void CallFixture::PlugIn() {
    touchpad->PlugIn();
    model.PlugIn();
}

void CallFixture::HoldElsewhere(bool held) {
    // Another process can only open a touchpad that is plugged in and free.
    if (held && (!model.IsPlugged() || model.IsConnected())) return;
    held ? touchpad->HoldElsewhere() : touchpad->ReleaseElsewhere();
    model.HoldElsewhere(held);
}

void CallFixture::HoldMutexElsewhere(bool held) {
    if (model.IsOpen()) return;
    held ? machine.HoldMutexElsewhere(kDeviceMutex, true)
         : machine.ReleaseMutexElsewhere(kDeviceMutex);
    model.HoldMutexElsewhere(held);
}

void CallFixture::PlugHaptic(bool plugged) {
    plugged ? hapticTouchpad->PlugIn() : hapticTouchpad->Unplug();
    haptic.plugged = plugged;
    if (!plugged) haptic.connected = false;
}

void CallFixture::InitLogger() {
    if (loggers_ == 0) std::filesystem::remove(HostLog().File());
    ++loggers_;
    ::InitLogger(HostLog().Path().wstring().c_str());
}

void CallFixture::UnInitLogger() {
    ::UnInitLogger();
    if (loggers_ == 0 || --loggers_ > 0) return;
    const std::string last = LastLine(HostLog().File());
    Check(Contains(last, "{INFO @ UnInitialize} Logger::UnInitialize"),
          "the log ends with " + last);
}

}  // namespace fuzz
