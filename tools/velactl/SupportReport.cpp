#include "tools/velactl/SupportReport.h"

#include <deque>
#include <fstream>
#include <vector>

#include "VelaAgentVersion.h"
#include "tools/recording/ReadableJson.h"
#include "tools/velactl/Checks.h"
#include "tools/velactl/FileVersion.h"
#include "tools/velactl/MachineRecording.h"
#include "tools/velactl/ReportHead.h"
#include "tools/velactl/Sha256.h"
#include "tools/velactl/Text.h"

namespace velactl {
namespace {

constexpr std::size_t kMostLines = 200;  // of a file
constexpr const char* kLogNames[] = {"VelaAgent.log", "VelaAgent.log.old"};

// For people who read it: the checks of doctor say more.
constexpr char kAbout[] =
    "Contents: versions, the checks of doctor, the HID devices (kinds, ids, capabilities; names "
    "only\n"
    "of the touchpad's vendors), \"Vela.ini\", the last lines of the agent's logs, a recording of "
    "the\n"
    "HID devices. No serial numbers or Bluetooth addresses; %USERPROFILE% replaces your own "
    "folder.\n"
    "Nothing is sent by itself. Read it before you pass it on: the logs are as the agent wrote "
    "them.\n";

std::string Section(const std::string& title, const std::string& text) {
    return "\n== " + title + " ==\n" + text + (text.empty() || text.back() == '\n' ? "" : "\n");
}

std::string LastLines(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return "there is none\n";
    std::deque<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        if (lines.size() > kMostLines) lines.pop_front();
    }
    std::string text;
    for (const std::string& line : lines) text += line + '\n';
    return text;
}

// Called before the library is loaded, which then logs there.
std::string Logs(const std::filesystem::path& folder) {
    std::string text;
    for (const char* const name : kLogNames) {
        text += Section(name, folder.empty() ? "give the host's log folder with --log\n"
                                             : LastLines(folder / name));
    }
    return text;
}

std::string Versions(const Context& context, const Json& machine) {
    const std::filesystem::path dll = context.DllFile();
    return RenderText({{"velactl", VELA_AGENT_VERSION},
                       {"system", machine["system"]},
                       {"library", Utf8(dll.wstring())},
                       {"library version", FileVersion(dll)},
                       {"library SHA-256", Sha256(dll)}});
}

std::string Devices(const Json& machine) {
    Json rows = Json::array();
    for (const Json& collection : machine["collections"]) {
        const Json attributes = collection.value("attributes", Json::object());
        const Json capabilities = collection.value("capabilities", Json::object());
        rows.push_back({{"vendor", attributes.value("vendor", "-")},
                        {"product", attributes.value("product", "-")},
                        {"version", attributes.value("version", "-")},
                        {"page", capabilities.value("usagePage", "-")},
                        {"usage", capabilities.value("usage", "-")},
                        {"bus", collection["bus"]},
                        {"verdict", collection["verdict"]},
                        {"path", collection["path"]}});
    }
    return RenderText(rows);
}

// Replaces the user's own folder, whose name is often that of the user; also in JSON.
void HideUserFolder(std::string& text) {
    wchar_t folder[MAX_PATH] = {};
    const DWORD length = GetEnvironmentVariableW(L"USERPROFILE", folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return;
    const std::string plain = Utf8(folder);
    const std::string escaped = Json(plain).dump();
    for (const std::string& name : {plain, escaped.substr(1, escaped.size() - 2)}) {
        for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at)) {
            text.replace(at, name.size(), "%USERPROFILE%");
        }
    }
}

}  // namespace

std::string SupportReport(Context& context, const StopSignal& stop) {
    const std::string logs = Logs(context.LogFolder());
    const std::vector<NamedResult> results = RunChecks(context);
    const Json machine = RecordMachine(RecordedStrings::kOfWantedVendors, stop);
    std::string text =
        ReportHead(results, machine) + '\n' + kAbout +
        Section("versions", Versions(context, machine)) + Section("doctor", DoctorText(results)) +
        Section("devices", Devices(machine)) +
        Section("Vela.ini", LastLines(context.DllFile().parent_path() / "Vela.ini")) + logs +
        Section("recording", recording::ReadableJson(machine));
    HideUserFolder(text);
    return text;
}

}  // namespace velactl
