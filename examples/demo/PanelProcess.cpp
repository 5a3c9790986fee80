#include "examples/demo/PanelProcess.h"

#include <chrono>
#include <stdexcept>

#include "tools/velapanel/PanelWindow.h"
#include "tools/velapanel/Snapshot.h"

namespace demo {
namespace {

constexpr std::chrono::seconds kTimeout{15};
// Half a breath, so that a breathing light is lit; far longer than the panel needs to draw.
constexpr DWORD kDrawnMilliseconds = 1500;

}  // namespace

PanelProcess::PanelProcess(const std::filesystem::path& program) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &started)) {
        throw std::runtime_error("cannot start " + program.string());
    }
    CloseHandle(started.hThread);
    process_ = started.hProcess;
    const auto deadline = std::chrono::steady_clock::now() + kTimeout;
    while (window_ == nullptr && std::chrono::steady_clock::now() < deadline) {
        Sleep(50);
        window_ = FindWindowW(velapanel::kWindowClass, nullptr);
    }
    if (window_ == nullptr) throw std::runtime_error("the panel's window did not come");
}

PanelProcess::~PanelProcess() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    WaitForSingleObject(process_, 5000);
    CloseHandle(process_);
}

void PanelProcess::Press(velapanel::Action action) {
    const auto index = static_cast<std::size_t>(action);
    if (index >= velapanel::kButtonCount) {
        PostMessageW(window_, WM_KEYDOWN, static_cast<WPARAM>(velapanel::kActions[index].key), 0);
        return;
    }
    RECT area{};
    GetClientRect(window_, &area);
    const velapanel::PanelLayout layout = velapanel::LayOut(area.right, area.bottom);
    const velapanel::Box& box = layout.BoxOf(action);
    PostMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON,
                 MAKELPARAM(box.left + box.width / 2, box.top + box.height / 2));
}

void PanelProcess::SavePicture(const std::filesystem::path& file) {
    Sleep(kDrawnMilliseconds);
    velapanel::SaveWindow(window_, file);
}

}  // namespace demo
