#include "hid/VendorList.h"

#include <windows.h>

#include <limits>
#include <stdexcept>
#include <string>

#include "log/ILog.h"
#include "platform/ModuleHandle.h"
#include "platform/Utf8.h"

namespace vela {
namespace {

constexpr DWORD kPathLength = 260;
constexpr DWORD kSectionNamesLength = 4096;

// Returns an empty path when the platform does not return the library's whole path.
std::wstring ConfigurationPath() {
    const HMODULE module = ModuleHandle();
    if (module == nullptr) return {};
    wchar_t path[kPathLength] = {};
    const DWORD length = GetModuleFileNameW(module, path, kPathLength);
    // A path that fills the buffer was cut short.
    if (length == 0 || length >= kPathLength) return {};

    std::wstring directory(path, length);
    const wchar_t* const separators = L"\\/";
    const std::size_t fileName = directory.find_last_of(separators);
    directory.resize(fileName == std::wstring::npos ? 0 : fileName);
    directory.resize(directory.find_last_not_of(separators) + 1);
    return directory + L"\\Vela.ini";
}

// Returns what stoul returns on Windows, where `unsigned long` has 32 bits, on every platform: a
// minus sign counts down from the end of the range.
std::uint32_t ParseVendorId(const std::wstring& sectionName) {
    constexpr int kHexadecimal = 16;
    constexpr long long kLargest = (std::numeric_limits<std::uint32_t>::max)();
    const long long value = std::stoll(sectionName, nullptr, kHexadecimal);
    if (value > kLargest || value < -kLargest) {
        throw std::out_of_range("stoul argument out of range");
    }
    return static_cast<std::uint32_t>(value);
}

}  // namespace

std::vector<std::uint32_t> GetVidsFromFile() {
    std::vector<std::uint32_t> vendorIds;
    const std::wstring path = ConfigurationPath();
    if (path.empty()) return vendorIds;

    std::vector<wchar_t> names(kSectionNamesLength);
    const DWORD count =
        GetPrivateProfileSectionNamesW(names.data(), kSectionNamesLength, path.c_str());
    for (DWORD position = 0; position < count && names[position] != L'\0';) {
        const std::wstring name(&names[position]);
        position += static_cast<DWORD>(name.size()) + 1;
        try {
            vendorIds.push_back(ParseVendorId(name));
        } catch (const std::logic_error&) {
            GetLogger()->Log(kLogWarning, "GetVidsFromFile", "stoul convert failed. %s",
                             Utf8(name).c_str());
        }
    }
    return vendorIds;
}

}  // namespace vela
