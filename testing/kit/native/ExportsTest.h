// The fixture of the exports' tests: TouchpadTest with the process's one session, which the exports
// drive. Each test has its own process, so what lasts as long as the process (brightness, the
// product string) is fresh.
#pragma once

#include "include/VelaAgent.h"
#include "interface/Singletons.h"
#include "testing/kit/native/TouchpadTest.h"

namespace kit {

class ExportsTest : public TouchpadTest {
 protected:
    ExportsTest() : TouchpadTest(vela::TouchpadSession()) {}
};

}  // namespace kit
