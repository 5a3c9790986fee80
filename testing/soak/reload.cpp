// A thousand times, loads the library, starts the log and the session, lights the lights, stops all
// of it and unloads the library.
//
//   soak_reload [CYCLES]
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "testing/kit/LogFolder.h"
#include "testing/soak/Figures.h"
#include "testing/soak/LogLines.h"
#include "testing/soak/ProcessFigures.h"
#include "testing/soak/SessionOwner.h"
#include "testing/soak/SoakTouchpad.h"
#include "testing/soak/windows/Growth.h"

namespace {

using namespace soak;
using std::chrono::milliseconds;

constexpr wchar_t kLibrary[] = L"VelaAgent.dll";
constexpr wchar_t kBareLibrary[] = L"soak_bare.dll";

// Covers the agent's logger, which is never destroyed, and the preparsed data of the haptic
// touchpad, which the scan rejects.
constexpr std::int64_t kHeapOfACycle = 8192;

// Loads a library that uses the same runtime and does nothing else.
void LoadBareLibrary() {
    const HMODULE module = LoadLibraryW(kBareLibrary);
    if (module == nullptr) throw std::runtime_error("cannot load the bare library");
    reinterpret_cast<void (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "UseRuntime")))();
    FreeLibrary(module);
}

class Reloading {
 public:
    explicit Reloading(std::int64_t cycles)
        : cycles_(cycles), touchpad_(SoakTouchpad::Make(TouchpadLayout{})) {}

    int Run() {
        constexpr std::int64_t kBareCycles = 60;
        const Growth bare = MeasureGrowth(kBareCycles, [](std::int64_t) { LoadBareLibrary(); });
        const std::int64_t step = std::max<std::int64_t>(cycles_ / 20, 10);
        const Growth growth = MeasureGrowth(cycles_, [&](std::int64_t cycle) {
            if (!RunCycle()) ++wrong_;
            if (cycle % step == 0) PrintProgress(cycle);
        });
        JudgeAll(growth, bare);
        figures_.Print();
        return figures_.ExitCode();
    }

 private:
    bool RunCycle() {
        touchpad_->ForgetWritten();
        bool isRight = true;
        {
            const Agent agent;
            agent.InitLogger(log_.Path().wstring().c_str());
            SessionOwner owner(agent, *touchpad_);
            owner.Open(false);
            isRight = owner.Reaches() && LightUp(agent);
            owner.Close();
            longestClosing_ = (std::max)(longestClosing_, owner.LongestClosing());
            agent.UnInitLogger();
        }
        FreeLibrary(GetModuleHandleW(kLibrary));
        return isRight && GetModuleHandleW(kLibrary) == nullptr && LogIsWhole();
    }

    bool LightUp(const Agent& agent) {
        agent.EnableFeature(1);
        agent.Activate(VELA_ACTIVE);
        for (std::uint32_t button = 0; button < 4; ++button) {
            agent.EnableSingleButton(button, 1);
            agent.SetButtonVisible(button, 1);
        }
        agent.UpdateVelaState();
        const std::optional<Bytes> lights =
            touchpad_->LightsBeforeRequest({virtual_touchpad::kLightReportId});
        return lights && (*lights)[virtual_touchpad::kActiveBitsOffset] == 0x0F;
    }

    // Each cycle has its own file, which must begin with the first line and end with the last.
    bool LogIsWhole() {
        const std::filesystem::path file = log_.File();
        LogLines lines;
        lines.Read(file, 0);
        std::string last;
        {
            std::ifstream stream(file, std::ios::binary);
            for (std::string line; std::getline(stream, line);) last = line;
        }
        std::filesystem::remove(file);
        lines_ += lines.count;
        return lines.torn.empty() && last.find("} Logger::UnInitialize") != std::string::npos;
    }

    void PrintProgress(std::int64_t cycle) const {
        std::map<std::string, std::int64_t> handles = OpenHandles();
        PrintLine("loaded and unloaded " + std::to_string(cycle) + " times  files " +
                  std::to_string(handles["File"]) + "  events " + std::to_string(handles["Event"]) +
                  "  threads " + std::to_string(ThreadCount()) + "  heap KiB " +
                  std::to_string(HeapInUse() / 1024));
    }

    void JudgeAll(Growth growth, Growth bare) {
        figures_.Judge("loaded, started, stopped, unloaded", cycles_, wrong_ == 0);
        figures_.Note("log lines read", lines_);
        figures_.Judge("longest closing, ms", longestClosing_.count(),
                       longestClosing_ <= kLongestClosing);
        figures_.Judge("threads more a cycle", growth.threads, growth.threads <= 0);
        for (const auto& [kind, more] : growth.handles) {
            // A session leaves its two events open.
            const std::int64_t known = bare.handles[kind] + (kind == "Event" ? 2 : 0);
            if (more == 0 && known == 0) continue;
            figures_.Note("the runtime's " + kind + " handles a cycle", bare.handles[kind]);
            figures_.Judge(kind + " handles more a cycle", more, more <= known);
        }
        figures_.Note("the runtime's heap a cycle, bytes", bare.heap);
        figures_.Judge("heap more than that a cycle, bytes", growth.heap - bare.heap,
                       growth.heap - bare.heap < kHeapOfACycle);
    }

    const std::int64_t cycles_;
    const kit::LogFolder log_;
    const std::unique_ptr<SoakTouchpad> touchpad_;
    Figures figures_{"reload"};
    std::int64_t wrong_ = 0;
    std::int64_t lines_ = 0;
    milliseconds longestClosing_{0};
};

}  // namespace

int main(int argc, char** argv) {
    try {
        return Reloading(argc > 1 ? std::atol(argv[1]) : 1000).Run();
    } catch (const std::exception& error) {
        PrintLine(std::string("ended by: ") + error.what());
        return 1;
    }
}
