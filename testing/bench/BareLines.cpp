#include "testing/bench/BareLines.h"

#include <windows.h>

#include <stdexcept>

namespace bench {

void WriteBareLines(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    const std::wstring path = file.wstring();
    for (const std::string& line : lines) {
        WIN32_FILE_ATTRIBUTE_DATA attributes{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &attributes);
        const HANDLE handle = CreateFileW(path.c_str(), FILE_APPEND_DATA,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        const auto size = static_cast<DWORD>(line.size());
        DWORD written = 0;
        if (!WriteFile(handle, line.data(), size, &written, nullptr) || written != size) {
            throw std::runtime_error("the bare log cannot be written");
        }
        CloseHandle(handle);
    }
}

}  // namespace bench
