#include "tools/velactl/Checks.h"

#include <fstream>

#include "VelaAgentVersion.h"
#include "hid/VendorList.h"
#include "tools/velactl/EventQueue.h"
#include "tools/velactl/FileVersion.h"
#include "tools/velactl/Firmware.h"
#include "tools/velactl/LogTail.h"
#include "tools/velactl/Notes.h"
#include "tools/velactl/Text.h"
#include "tools/velactl/TouchpadChecks.h"
#include "touchpad/DeviceMutex.h"
#include "touchpad/TouchpadDiscovery.h"

namespace velactl {
namespace {

// Runs before the library is loaded, which then begins to log there.
CheckResult CheckLastSession(DoctorContext& doctor) {
    const auto folder = doctor.context.LogFolder();
    if (folder.empty()) return Skipped("give the host's log folder with --log");
    LogTail log(folder);
    if (!log.FileExists()) return Skipped("no VelaAgent.log in " + Utf8(folder.wstring()));
    std::string text = log.Read();
    const auto start = text.rfind("CTandrelHID initialize start");
    if (start != std::string::npos) text.erase(0, start);
    const auto error = text.rfind("{ERROR @ ");
    if (error == std::string::npos) return Ok("its log has no error");
    return Failed(
        text.substr(error, text.find_first_of("\r\n", error) - error),
        "look for this line in troubleshooting.md; \"velactl log\" shows those around it");
}

CheckResult CheckLibrary(DoctorContext& doctor) {
    const std::filesystem::path file = doctor.context.DllFile();
    try {
        doctor.context.Library();
    } catch (const vela_agent::LoadError& error) {
        return Failed(error.what(),
                      error.ExportName().empty()
                          ? "put the 64-bit VelaAgent.dll beside velactl, or name it with --dll"
                          : "replace the file: it is not VelaAgent.dll, or is an older one");
    } catch (const vela_agent::LogError&) {
        // The library is loaded nevertheless; the check of the log folder reports the folder.
    }
    doctor.isLoaded = true;
    const std::string version = FileVersion(file);
    const std::string finding = Utf8(file.wstring()) + ", version " +
                                (version.empty() ? "unknown" : version) + ", all exports";
    if (version == VELA_AGENT_VERSION) return Ok(finding);
    return Failed(finding, "use the velactl of the same version; this one is " VELA_AGENT_VERSION);
}

CheckResult CheckVendorFile(DoctorContext& doctor) {
    if (!doctor.isLoaded) return Skipped("it lies beside the library");
    const auto file = doctor.context.DllFile().parent_path() / "Vela.ini";
    TakeNotes();
    std::vector<std::string> selected;
    for (const vela::HidDeviceFilter& filter : vela::TouchpadDiscovery().GetHidDeviceFilters()) {
        selected.push_back(Hex(filter.VendorID));
    }
    const std::string finding = "looks for vendor " + Joined(selected);
    const std::vector<std::string> notes = TakeNotes();
    if (!std::filesystem::exists(file)) return Ok("no \"Vela.ini\": " + finding);
    if (!notes.empty()) {
        return Failed(finding + "; " + Joined(notes),
                      "name each section of \"Vela.ini\" by a vendor id, as [0488]");
    }
    if (vela::GetVidsFromFile().empty()) {
        return Failed("\"Vela.ini\" selects nothing: " + finding,
                      "give \"Vela.ini\" a section named by each vendor id, as [0488], or "
                      "remove it");
    }
    return Ok("\"Vela.ini\" " + finding);
}

// Checks for the mutex that every session creates, another user's included.
CheckResult CheckOtherSessions(DoctorContext&) {
    const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, vela::kSessionDeviceMutexName.c_str());
    if (mutex != nullptr) CloseHandle(mutex);
    if (mutex == nullptr && GetLastError() != ERROR_ACCESS_DENIED) return Ok("no other session");
    return Failed("another process has a session open",
                  "leave the meeting, or end the host that drives the touchpad, and try again");
}

CheckResult CheckOpening(DoctorContext& doctor) {
    if (!doctor.isPresent) return Skipped("no touchpad to open");
    try {
        EventQueue events;
        vela_agent::Session session(doctor.context.Library(), events.Handlers());
        doctor.isOpen = true;
        doctor.firmware = RequestFirmwareState(session, events).Text();
        return Ok("opened and closed");
    } catch (const vela_agent::OpenError& error) {
        return Failed(error.what(), error.Result() == VELA_INIT_HELD_BY_OTHER
                                        ? "end the process that has the touchpad open"
                                        : "unplug it and plug it in again; with --log the agent "
                                          "tells the system's error");
    }
}

// cppcheck-suppress constParameter ; a row of checks holds functions of one type
CheckResult CheckFirmware(DoctorContext& doctor) {
    if (!doctor.isOpen) return Skipped("the touchpad is not open");
    const std::string finding = "the firmware " + doctor.firmware;
    if (doctor.firmware == "cannot be asked") return Skipped(finding);
    if (doctor.firmware == "answers") return Ok(finding);
    return Failed(finding, "unplug the touchpad and plug it in again; then update its firmware");
}

CheckResult CheckLogFolder(DoctorContext& doctor) {
    const auto folder = doctor.context.LogFolder();
    if (folder.empty()) return Skipped("give the host's log folder with --log");
    const std::string name = Utf8(folder.wstring());
    if (!std::filesystem::is_directory(folder)) {
        return Failed("no folder " + name, "create it: the agent creates none");
    }
    // Opens the log itself, and only for appending, as it may belong to another user.
    const auto file = folder / "VelaAgent.log";
    const bool existed = std::filesystem::exists(file);
    const bool isWritable = std::ofstream(file, std::ios::app).is_open();
    std::error_code ignored;
    if (!existed && isWritable) std::filesystem::remove(file, ignored);
    if (isWritable) return Ok(name + " can be written");
    return Failed("VelaAgent.log cannot be written in " + name,
                  "let the host's user write there, or give InitLogger another folder");
}

}  // namespace

const std::vector<Check>& Checks() {
    static const std::vector<Check> checks{
        {kLastSessionCheck, CheckLastSession},
        {"library", CheckLibrary},
        {"vendors", CheckVendorFile},
        {"touchpad", CheckDevice},
        {"buttons and lights", CheckParts},
        {"other sessions", CheckOtherSessions},
        {"opening", CheckOpening},
        {"firmware", CheckFirmware},
        {"log folder", CheckLogFolder},
    };
    return checks;
}

}  // namespace velactl
