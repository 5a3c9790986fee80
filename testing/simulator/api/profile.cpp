// Section names of ini files.
#include <windows.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/Text.h"

using namespace simulator;

namespace {

// Files are in the ANSI code page, taken as Latin-1 here, unless they begin with the byte order
// mark of little-endian UTF-16. A UTF-8 mark is read as three letters.
std::wstring Decode(const std::string& bytes) {
    const auto at = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    std::wstring text;
    if (bytes.compare(0, 2, "\xFF\xFE") == 0) {
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            text += static_cast<wchar_t>(at(i) | at(i + 1) << 8);
        }
    } else {
        for (std::size_t i = 0; i < bytes.size(); ++i) text += static_cast<wchar_t>(at(i));
    }
    return text;
}

std::optional<std::wstring> SectionName(const std::wstring& line) {
    const std::size_t open = line.find_first_not_of(L" \t");
    if (open == std::wstring::npos || line[open] != L'[') return std::nullopt;
    const std::size_t close = line.find(L']', open);
    // An empty name would end the list.
    if (close == std::wstring::npos || close == open + 1) return std::nullopt;
    return line.substr(open + 1, close - open - 1);
}

// Each name with its terminator.
std::wstring SectionNames(const std::string& bytes) {
    std::wstring names;
    std::wistringstream lines(Decode(bytes));
    for (std::wstring line; std::getline(lines, line);) {
        if (const auto name = SectionName(line)) names += *name + L'\0';
    }
    return names;
}

std::optional<std::string> FindFile(LPCWSTR path) {
    const MachineLock lock;
    const auto found = State().files.find(FoldCase(path));
    if (found == State().files.end()) return std::nullopt;
    return found->second;
}

DWORD CopyNames(const std::wstring& names, LPWSTR buffer, DWORD size) {
    // The list ends with a second terminator, which the result does not count.
    if (names.size() < size) {
        std::copy(names.begin(), names.end(), buffer);
        buffer[names.size()] = L'\0';
        return static_cast<DWORD>(names.size());
    }
    const DWORD kept = size >= 2 ? size - 2 : 0;
    std::copy_n(names.begin(), kept, buffer);
    std::fill(buffer + kept, buffer + size, L'\0');
    return kept;
}

}  // namespace

extern "C" DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR lpszReturnBuffer, DWORD nSize,
                                                       LPCWSTR lpFileName) {
    if (const auto fault =
            Enter("GetPrivateProfileSectionNamesW", Arguments(Count(nSize), Quoted(lpFileName)))) {
        return fault->Failed<DWORD>(0);
    }
    if (lpszReturnBuffer == nullptr || nSize == 0 || lpFileName == nullptr) {
        return FailWith<DWORD>(ERROR_INVALID_PARAMETER, 0);
    }
    const auto file = FindFile(lpFileName);
    if (!file) SetLastError(ERROR_FILE_NOT_FOUND);
    return CopyNames(file ? SectionNames(*file) : L"", lpszReturnBuffer, nSize);
}
