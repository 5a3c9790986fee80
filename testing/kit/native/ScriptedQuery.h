// A discovery query with the filters and usage pages that a test gives it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "hid/IDiscoveryQuery.h"

namespace kit {

class ScriptedQuery final : public vela::IDiscoveryQuery {
 public:
    // The values that discovery gets; initially those of the button touchpad's session.
    vela::HidDeviceFilterList filters{{0x0488, 0xFF80, 0x80}};
    vela::HidCapUsagePageList valuePages{{0, 0xFF80}, {1, 0xFF80}, {2, 0xFF80}};
    vela::HidCapUsagePageList buttonPages{{0, 0xFF80}, {1, 0xFF80}};

    vela::HidDeviceFilterList GetHidDeviceFilters() override {
        NoteCall("filters");
        return filters;
    }
    vela::HidCapUsagePageList GetValueCapUsagePages() override {
        NoteCall("value pages");
        return valuePages;
    }
    vela::HidCapUsagePageList GetButtonCapUsagePages() override {
        NoteCall("button pages");
        return buttonPages;
    }

    // "filters", "value pages", "button pages", in the order in which discovery called for them.
    const std::vector<std::string>& Questions() const { return questions_; }

 private:
    // Discovery must call on the scanning thread, which here is the one that made the query.
    void NoteCall(const char* question) {
        EXPECT_EQ(std::this_thread::get_id(), owner_);
        questions_.emplace_back(question);
    }

    std::thread::id owner_ = std::this_thread::get_id();
    std::vector<std::string> questions_;
};

}  // namespace kit
