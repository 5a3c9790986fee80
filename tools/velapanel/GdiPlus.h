// GDI+ with the declarations that its header requires.
#pragma once

#include <windows.h>
#include <objidl.h>

#include <algorithm>

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>

namespace velapanel {

// GDI+ is usable only while this object exists; a program that draws creates it first and destroys
// it last.
class GdiPlusSession {
 public:
    GdiPlusSession() {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    ~GdiPlusSession() { Gdiplus::GdiplusShutdown(token_); }
    GdiPlusSession(const GdiPlusSession&) = delete;
    GdiPlusSession& operator=(const GdiPlusSession&) = delete;

 private:
    ULONG_PTR token_ = 0;
};

}  // namespace velapanel
