#include "testing/acceptance/guide/Program.h"

#include <stdexcept>

namespace guide {

Program::Program(const std::filesystem::path& file, const std::wstring& arguments) {
    SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
    HANDLE childInput = nullptr;
    HANDLE childOutput = nullptr;
    CreatePipe(&childInput, &input_, &inheritable, 0);
    CreatePipe(&output_, &childOutput, &inheritable, 0);
    SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = childInput;
    startup.hStdOutput = childOutput;
    std::wstring commandLine = L"\"" + file.wstring() + L"\" " + arguments;
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    PROCESS_INFORMATION started{};
    const bool isStarted = CreateProcessW(file.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                                          0, nullptr, folder.c_str(), &startup, &started) != FALSE;
    CloseHandle(childInput);
    CloseHandle(childOutput);
    if (!isStarted) throw std::runtime_error("cannot start an example");
    CloseHandle(started.hThread);
    process_ = started.hProcess;
}

Program::~Program() {
    TerminateProcess(process_, 99);
    for (const HANDLE handle : {process_, input_, output_}) CloseHandle(handle);
}

void Program::Type(const std::string& line) const {
    const std::string keys = line + "\n";
    DWORD written = 0;
    WriteFile(input_, keys.data(), static_cast<DWORD>(keys.size()), &written, nullptr);
}

std::string Program::Output(const std::string& last) {
    char character = 0;
    DWORD read = 0;
    while (text_.find(last) == std::string::npos &&
           ReadFile(output_, &character, 1, &read, nullptr) && read == 1) {
        if (character != '\r') text_ += character;
    }
    return text_;
}

DWORD Program::ExitCode() const {
    WaitForSingleObject(process_, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
}

}  // namespace guide
