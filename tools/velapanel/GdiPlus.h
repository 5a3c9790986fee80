// GDI+ with what its header expects to be there before it.
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

// GDI+ is usable for as long as this lives; the first and last thing of a program that draws.
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
