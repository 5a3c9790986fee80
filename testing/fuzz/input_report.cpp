// Sends input reports of any length and content to an open session: the host gets the callbacks for
// them in their order, and the reader goes on.
#include "include/VelaAgent.h"
#include "testing/fuzz/Check.h"
#include "testing/fuzz/FuzzInput.h"
#include "testing/fuzz/InputLayouts.h"
#include "testing/kit/HostCallbacks.h"
#include "testing/kit/SessionModel.h"

namespace {

using fuzz::Check;
using fuzz::CheckSame;
using fuzz::FuzzInput;
using fuzz::InputLayout;
using kit::HostCallbacks;
using kit::SessionModel;
using simulator::Bytes;
using simulator::Device;

// Fewer reports than the platform queues for a slow reader.
constexpr int kMaximumReports = 24;
constexpr std::uint32_t kNormal = 0;
constexpr std::uint32_t kDeactivated = 4;

void OpenSession(std::uint32_t activation, SessionModel& model) {
    CheckSame(Init(), model.Init(), "Init");
    SetVelaButtonPressCallback(kit::OnButtonPress);
    model.SetButtonPressCallback(true);
    SetVelaStatusChangeCallback(kit::OnStatusChange);
    model.SetStatusChangeCallback(true);
    EnableFeature(1);
    model.EnableFeature(true);
    Activate(activation);
    model.Activate(activation);
    for (std::uint32_t button = 0; button < 4; ++button) {
        EnableSingleButton(button, 1);
        model.EnableSingleButton(button, true);
        SetButtonVisible(button, 1);
        model.SetButtonVisible(button, true);
    }
}

void CloseSession() {
    // A temporary disable would outlive the session; it ends with a deactivation.
    Activate(kNormal);
    Activate(kDeactivated);
    Check(UnInit() == 1, "UnInit");
    HostCallbacks::Reset();
}

void Send(const Bytes& report, const InputLayout& layout, Device& device, SessionModel& model) {
    device.SendInput(report);
    if (const auto read = layout.fields.Read(report)) {
        model.Receive(read->reportId, read->usages, read->firmwareState);
    }
}

// Each report in the input is its length and its bytes.
void SendAll(FuzzInput& input, const InputLayout& layout, Device& device, SessionModel& model) {
    const std::size_t longest = fuzz::InputReportLength(device);
    for (int count = 0; count < kMaximumReports && !input.IsEmpty(); ++count) {
        const Bytes report = input.Bytes(1 + input.Byte() % longest);
        if (!report.empty()) Send(report, layout, device, model);
    }
}

void CheckNotified(const char* when, const Device& device, SessionModel& model) {
    Check(device.WaitForPendingReads(), std::string("the reader does not come back ") + when);
    CheckSame(HostCallbacks::Calls(), model.TakeCallbacks(),
              std::string("what the host was told ") + when);
    HostCallbacks::Reset();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const InputLayout layout = input.OneOf(fuzz::InputLayouts());
    constexpr std::uint32_t kActivations[] = {0, 1, 2, 4, 5};
    simulator::Machine& machine = kit::EmptyMachine();
    const auto device = machine.Plug(layout.description);
    SessionModel model{kit::TouchpadLayout{}};
    OpenSession(input.OneOf(kActivations), model);
    SendAll(input, layout, *device, model);
    CheckNotified("by the reports", *device, model);
    Send(layout.cameraPress, layout, *device, model);
    CheckNotified("by a press afterwards", *device, model);
    CloseSession();
    CheckSame(machine.Misuse(), {}, "misuse of the platform");
    return 0;
}
