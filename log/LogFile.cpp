#include "log/LogFile.h"

#include <windows.h>

namespace vela {
namespace {

// The system finds the end of the file at each write.
HANDLE OpenForAppending(const std::wstring& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return CreateFileW(path.c_str(), FILE_APPEND_DATA, kShareAll, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Text files of the platform have a carriage return before each line feed.
std::string WithCarriageReturns(const std::string& text) {
    std::string result;
    result.reserve(text.size() + 1);
    std::size_t copied = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', copied)) {
        result.append(text, copied, end - copied).append("\r\n");
        copied = end + 1;
    }
    return result.append(text.substr(copied));
}

// False when not all of the text is in the file, with the last error.
bool Write(HANDLE file, const std::string& text) {
    const auto size = static_cast<DWORD>(text.size());
    DWORD written = 0;
    return WriteFile(file, text.data(), size, &written, nullptr) && written == size;
}

}  // namespace

LogFile::LogFile(const std::wstring& path) : file_(OpenForAppending(path)) {}

void LogFile::Append(const std::string& line) const {
    if (!file_.IsValid() || Write(file_.Get(), WithCarriageReturns(line))) return;
    const std::string error = std::to_string(GetLastError());
    OutputDebugStringA(("VelaAgent.log: WriteFile failed, GetLastError(" + error + ")").c_str());
}

bool LogFile::GetSize(const std::wstring& path, std::uint64_t& size) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return false;
    size = std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
    return true;
}

}  // namespace vela
