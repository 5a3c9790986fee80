// Whoever has the touchpad open: the agent, or nothing but the system calls.
#pragma once

#include <atomic>
#include <deque>
#include <string>
#include <thread>

#include <windows.h>

#include "platform/SlimMutex.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"

namespace bench {

class Host {
 public:
    virtual ~Host() = default;
    // When the last press was handed to the host, as Nanoseconds tells it; 0 until it comes.
    virtual double PressSeen() const = 0;
    virtual void Forget() = 0;
};

// A session with the feature on and all four buttons lit; the agent answers the camera's press with
// a light report.
class AgentHost final : public Host {
 public:
    explicit AgentHost(const kit::AgentDll& agent);
    ~AgentHost() override;
    double PressSeen() const override;
    void Forget() override;

 private:
    const kit::AgentDll& agent_;
};

enum class WritesOn { TheReader, AThreadOfItsOwn };

// Waits for a report, notes the time, writes one of two light reports and waits until it is
// written: then and there, or on a second thread, as the agent has to, whose host may ask for
// lights as well; that one is woken as the agent's is.
class BareHost final : public Host {
 public:
    BareHost(const std::wstring& path, virtual_touchpad::TouchpadControl& touchpad,
             WritesOn thread);
    ~BareHost() override;
    BareHost(const BareHost&) = delete;
    BareHost& operator=(const BareHost&) = delete;
    double PressSeen() const override { return seen_; }
    void Forget() override { seen_ = 0; }

 private:
    void Read();
    void WriteQueued();
    bool Write(std::size_t press);
    bool Finish(BOOL done, OVERLAPPED& overlapped);

    virtual_touchpad::TouchpadControl& touchpad_;
    HANDLE file_;
    HANDLE readEvent_;
    HANDLE writeEvent_;
    std::atomic<bool> stop_{false};
    std::atomic<double> seen_{0};
    vela::SlimMutex mutex_;  // guards: queue_
    vela::SlimConditionVariable queued_;
    std::deque<std::size_t> queue_;
    std::thread writer_;  // only with a thread of its own
    std::thread reader_;
};

}  // namespace bench
