#include <gmock/gmock.h>

#include "tools/velapanel/GdiPlus.h"

int main(int argc, char** argv) {
    const velapanel::GdiPlusSession gdiPlus;
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
