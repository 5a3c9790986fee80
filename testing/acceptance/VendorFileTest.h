// The fixture of tests with a "Vela.ini": the DLL is a copy in a folder of the test's own, because
// the file lies beside the DLL.
#pragma once

#include <fstream>

#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {

class VendorFileTest : public TouchpadAcceptanceTest {
 protected:
    // There is no "Vela.ini" at first.
    VendorFileTest() { UseCopyIn(log_.Path() / "agent"); }
    ~VendorFileTest() override { LeaveCopy(); }

    // Makes `agent_` a copy of the DLL in this folder, under this name.
    void UseCopyIn(const std::filesystem::path& folder,
                   const std::wstring& name = L"VelaAgent.dll") {
        LeaveCopy();
        std::filesystem::create_directories(folder);
        library_ = folder / name;
        std::filesystem::copy_file(ProgramFolder() / "VelaAgent.dll", library_);
        agent_.UnInitLogger();
        std::filesystem::remove(log_.File());
        agent_ = AgentDll(library_);
        agent_.InitLogger(log_.Path().c_str());
    }

    void WriteVendorFile(const std::string& text) {
        std::ofstream(VendorFile(), std::ios::binary) << text;
    }
    std::filesystem::path VendorFile() const { return library_.parent_path() / "Vela.ini"; }

    // Plugs a touchpad of this vendor in and out again; returns whether it was found.
    bool Finds(std::uint16_t vendorId) {
        TouchpadLayout layout;
        layout.vendorId = vendorId;
        Plug(layout);
        const std::int32_t result = agent_.Init();
        EXPECT_EQ(agent_.UnInit(), result == VELA_INIT_OPEN ? 1 : 0);
        Unplug();
        return result == VELA_INIT_OPEN;
    }

 private:
    // Unloads the copy, so that its folder can be removed.
    void LeaveCopy() {
        if (library_.empty()) return;
        agent_.UnInit();
        agent_.UnInitLogger();
        agent_ = AgentDll();
        FreeLibrary(GetModuleHandleW(library_.c_str()));
        library_.clear();
    }

    std::filesystem::path library_;
};

}  // namespace acceptance
