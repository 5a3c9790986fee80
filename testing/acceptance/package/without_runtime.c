/* A host without a C runtime, so that Microsoft's linker, or one that takes its arguments, links it
 * from the import library alone. Its exit code is the default brightness, 3. */
#include "VelaAgent.h"

int Start(void) { return (int)GetVelaBrightness() + (IsActivated() ? 100 : 0); }
