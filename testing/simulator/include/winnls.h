// Code pages.
#pragma once

#include <minwindef.h>

#define CP_UTF8 65001u

extern "C" int WINAPI WideCharToMultiByte(UINT CodePage, DWORD dwFlags, LPCWCH lpWideCharStr,
                                          int cchWideChar, LPSTR lpMultiByteStr, int cbMultiByte,
                                          LPCCH lpDefaultChar, LPBOOL lpUsedDefaultChar);
