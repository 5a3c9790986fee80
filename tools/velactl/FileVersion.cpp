#include "tools/velactl/FileVersion.h"

#include <windows.h>

#include <vector>

namespace velactl {

std::string FileVersion(const std::filesystem::path& file) {
    DWORD unused = 0;
    std::vector<char> resource(GetFileVersionInfoSizeW(file.c_str(), &unused));
    if (resource.empty() ||
        !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(resource.size()),
                             resource.data())) {
        return {};
    }
    VS_FIXEDFILEINFO* version = nullptr;
    UINT length = 0;
    void* block = nullptr;
    if (!VerQueryValueW(resource.data(), L"\\", &block, &length) || length < sizeof(*version)) {
        return {};
    }
    version = static_cast<VS_FIXEDFILEINFO*>(block);
    return std::to_string(HIWORD(version->dwFileVersionMS)) + "." +
           std::to_string(LOWORD(version->dwFileVersionMS)) + "." +
           std::to_string(HIWORD(version->dwFileVersionLS));
}

}  // namespace velactl
