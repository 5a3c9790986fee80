// The record of platform calls.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "testing/simulator/Calls.h"

namespace simulator {

// Callers hold the machine's lock.
class CallLog {
 public:
    // Numbers the call and keeps a copy while recording is on.
    void Add(Call& call);
    void Forget();
    void SetRecording(bool recording) { recording_ = recording; }

    const std::vector<Call>& Calls() const { return calls_; }
    std::size_t Count(std::string_view function) const;

 private:
    std::vector<Call> calls_;
    // The counts are kept separately because a test that waits for one checks it after every call.
    std::map<std::string, std::size_t, std::less<>> counts_;
    std::size_t next_ = 0;
    bool recording_ = true;
};

}  // namespace simulator
