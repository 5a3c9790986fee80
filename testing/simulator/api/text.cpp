// Conversion of wide text.
#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "testing/simulator/LastError.h"
#include "testing/simulator/Text.h"

using namespace simulator;

namespace {

constexpr int kUpToTheTerminator = -1;

// Includes the terminator when `count` is kUpToTheTerminator.
std::wstring_view View(LPCWCH text, int count) {
    if (count == kUpToTheTerminator) return {text, std::wstring_view(text).size() + 1};
    return {text, static_cast<std::size_t>(count)};
}

DWORD Refusal(UINT codePage, DWORD flags, LPCWCH text, int count, LPCCH buffer, int size,
              bool hasDefault) {
    // The other code pages are not modelled.
    if (codePage != CP_UTF8 || hasDefault) return ERROR_INVALID_PARAMETER;
    if (flags != 0) return ERROR_INVALID_FLAGS;
    if (text == nullptr || count == 0 || count < kUpToTheTerminator) return ERROR_INVALID_PARAMETER;
    if (size < 0 || (size > 0 && buffer == nullptr)) return ERROR_INVALID_PARAMETER;
    return ERROR_SUCCESS;
}

}  // namespace

extern "C" int WINAPI WideCharToMultiByte(UINT CodePage, DWORD dwFlags, LPCWCH lpWideCharStr,
                                          int cchWideChar, LPSTR lpMultiByteStr, int cbMultiByte,
                                          // The platform's own signature.
                                          // NOLINTNEXTLINE(readability-non-const-parameter)
                                          LPCCH lpDefaultChar, LPBOOL lpUsedDefaultChar) {
    if (const DWORD error =
            Refusal(CodePage, dwFlags, lpWideCharStr, cchWideChar, lpMultiByteStr, cbMultiByte,
                    lpDefaultChar != nullptr || lpUsedDefaultChar != nullptr)) {
        return FailWith(error, 0);
    }
    const std::string utf8 = Utf8(View(lpWideCharStr, cchWideChar));
    const auto room = static_cast<std::size_t>(cbMultiByte);
    if (room == 0) return static_cast<int>(utf8.size());
    if (utf8.size() > room) return FailWith(ERROR_INSUFFICIENT_BUFFER, 0);
    std::copy(utf8.begin(), utf8.end(), lpMultiByteStr);
    return static_cast<int>(utf8.size());
}
