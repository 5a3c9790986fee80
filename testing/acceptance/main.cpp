#include <gmock/gmock.h>
#include <windows.h>

#include <cstdio>

#include "testing/kit/windows/ChildProcess.h"

// Ends without unloading the DLL: after a detachable touchpad was active, unloading ends the
// process abnormally by design, and the test's result is lost. A child process ends as hosts do.
int main(int argc, char** argv) {
    if (kit::IsChildProcess(argc, argv)) return kit::PlayChildRole(argv);
    testing::InitGoogleMock(&argc, argv);
    const int result = RUN_ALL_TESTS();
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}
