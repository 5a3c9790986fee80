// Init opens touchpads of the vendors in "Vela.ini".
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/LibraryFolder.h"

namespace {

using namespace kit;

using InitVendorsTest = kit::ExportsTest;

TEST_F(InitVendorsTest, InitOpensATouchpadOfAListedVendorOnly) {
    const LibraryFolder folder;
    folder.PutVelaIni("[1A2B]\n[2F00]\n");
    Plug();
    EXPECT_EQ(Init(), 2);
    TouchpadLayout listed;
    listed.vendorId = 0x2F00;
    Plug(listed);
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(device_->OpenHandles(), 1U);
}

TEST_F(InitVendorsTest, WithoutAFileInitOpensTheDefaultVendorsTouchpadOnly) {
    const LibraryFolder folder;
    TouchpadLayout other;
    other.vendorId = 0x1A2B;
    Plug(other);
    EXPECT_EQ(Init(), 2);
    Plug();
    EXPECT_EQ(Init(), 1);
}

}  // namespace
