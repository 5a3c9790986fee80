// A device session that only says what it is looking for; opening one is not its business.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "touchpad/IHid.h"

namespace test_support {

class ScriptedHid : public vela::IHid {
 public:
    // What discovery is told; at first what the button touchpad's session says.
    vela::HidDeviceFilterList filters{{0x0488, 0xFF80, 0x80}};
    vela::HidCapUsagePageList valuePages{{0, 0xFF80}, {1, 0xFF80}, {2, 0xFF80}};
    vela::HidCapUsagePageList buttonPages{{0, 0xFF80}, {1, 0xFF80}};

    vela::HidDeviceFilterList GetHidDeviceFilters() override {
        NoteQuestion("filters");
        return filters;
    }
    vela::HidCapUsagePageList GetValueCapUsagePages() override {
        NoteQuestion("value pages");
        return valuePages;
    }
    vela::HidCapUsagePageList GetButtonCapUsagePages() override {
        NoteQuestion("button pages");
        return buttonPages;
    }

    std::uint32_t Initialize(const std::shared_ptr<const vela::CHIDInformation>&) override {
        ADD_FAILURE() << "discovery opens no session";
        return vela::kHidFailed;
    }
    bool Uninitialize() override {
        ADD_FAILURE() << "discovery closes no session";
        return false;
    }

    // "filters", "value pages", "button pages", in the order in which they were asked for.
    const std::vector<std::string>& Questions() const { return questions_; }

 private:
    // A session is asked on the thread that scans, which here is the one that made it.
    void NoteQuestion(const char* question) {
        EXPECT_EQ(std::this_thread::get_id(), owner_);
        questions_.emplace_back(question);
    }

    std::thread::id owner_ = std::this_thread::get_id();
    std::vector<std::string> questions_;
};

}  // namespace test_support
