#include "testing/unit/velactl/Velactl.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "testing/kit/WaitUntil.h"
#include "testing/kit/windows/AgentDll.h"

namespace velactl_test {
namespace {

constexpr DWORD kPatienceMs = 30000;

HANDLE CreateInheritable(const std::filesystem::path& file) {
    SECURITY_ATTRIBUTES inherit{sizeof(inherit), nullptr, TRUE};
    const HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot create a scratch file");
    return handle;
}

std::string Read(const std::filesystem::path& file) {
    std::string text = kit::FileText(file);
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

}  // namespace

Velactl::Velactl(const std::wstring& arguments)
    : output_(folder_.Path() / "output"), errors_(folder_.Path() / "errors") {
    const std::wstring program = (kit::ProgramFolder() / "velactl.exe").wstring();
    std::wstring commandLine = L"\"" + program + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = CreateInheritable(output_);
    startup.hStdError = CreateInheritable(errors_);
    const bool started = CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                                        0, nullptr, nullptr, &startup, &process_);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    if (!started) throw std::runtime_error("cannot start velactl");
}

Velactl::~Velactl() {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, kPatienceMs);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

bool Velactl::WaitForOutput(const std::string& part) const {
    return kit::WaitUntil([&] { return Output().find(part) != std::string::npos; });
}

// There is no console to send Ctrl+C: like a console, this starts a thread that runs the system's
// routine. System libraries have the same address in every process.
void Velactl::Interrupt() const {
    const FARPROC routine = GetProcAddress(GetModuleHandleW(L"kernelbase.dll"), "CtrlRoutine");
    const HANDLE thread = CreateRemoteThread(
        process_.hProcess, nullptr, 0,
        reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(routine)),
        nullptr,  // CTRL_C_EVENT
        0, nullptr);
    if (thread == nullptr) throw std::runtime_error("cannot interrupt velactl");
    CloseHandle(thread);
}

DWORD Velactl::Wait() const {
    WaitForSingleObject(process_.hProcess, kPatienceMs);
    DWORD exitCode = STILL_ACTIVE;
    GetExitCodeProcess(process_.hProcess, &exitCode);
    return exitCode;
}

std::string Velactl::Output() const { return Read(output_); }

std::string Velactl::Errors() const { return Read(errors_); }

std::vector<Json> Velactl::Results() const {
    std::vector<Json> results;
    std::istringstream lines(Output());
    for (std::string line; std::getline(lines, line);) {
        Json result = Json::parse(line, nullptr, false);
        if (!result.is_discarded()) results.push_back(std::move(result));
    }
    return results;
}

Finished::Finished(const Velactl& program)
    : exitCode(program.Wait()),
      output(program.Output()),
      errors(program.Errors()),
      results(program.Results()) {}

}  // namespace velactl_test
