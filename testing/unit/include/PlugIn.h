// The functions of the plug-in of these tests.
#pragma once

extern "C" {
__declspec(dllexport) void StartLog(const wchar_t* dll, const wchar_t* directory);
__declspec(dllexport) void OpenTouchpad(const wchar_t* dll);
__declspec(dllexport) void OpenHaptics(const wchar_t* dll);
__declspec(dllexport) void CloseAll();
}
