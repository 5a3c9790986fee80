// The stage of the exports' tests: TouchpadTest with the process's one session, which the exports
// drive. What the process keeps (brightness, the product string) is fresh because each test has a
// process of its own.
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
