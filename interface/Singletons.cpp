#include "interface/Singletons.h"

namespace vela {

CTandrelHID& TouchpadSession() {
    static CTandrelHID session;
    return session;
}

CHapticTouchpadHID& HapticTouchpadSession() {
    static CHapticTouchpadHID session;
    return session;
}

}  // namespace vela
