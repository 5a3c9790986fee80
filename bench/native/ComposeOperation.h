// Composition happens inside the session, which has no doors for measurements. An explicit
// instantiation may name private members, so this one hands the operation out.
#pragma once

#include <vector>

#include "touchpad/TandrelHID.h"

namespace bench {

using Compose = void (vela::CTandrelHID::*)(std::vector<BYTE>& report);
Compose ComposeOperation();

template <Compose operation>
struct HandOut {
    friend Compose ComposeOperation() { return operation; }
};
template struct HandOut<&vela::CTandrelHID::UpdateLedCtrl>;

}  // namespace bench
