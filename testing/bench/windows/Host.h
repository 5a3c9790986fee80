// A host that has the touchpad open, through the agent or with nothing but system calls.
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
    // Returns when the host got the last press, by the clock of Nanoseconds; 0 until then.
    virtual double PressSeen() const = 0;
    virtual void Forget() = 0;
};

// Opens a session with the feature on and all four buttons lit; the agent writes a light report for
// each press of the camera button.
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
enum class Queries { None, Connection };

// Waits for a report, records the time, writes one of two light reports and waits until it is
// written, either on the same thread or on a second one. The agent needs a second one because its
// host may set lights too; the one here is woken in the same way. For a detachable touchpad the
// agent queries whether it is connected, once before it composes a report and once before it
// writes it; so does this host when it is to.
class BareHost final : public Host {
 public:
    BareHost(const std::wstring& path, virtual_touchpad::TouchpadControl& touchpad, WritesOn thread,
             Queries queries = Queries::None);
    ~BareHost() override;
    BareHost(const BareHost&) = delete;
    BareHost& operator=(const BareHost&) = delete;
    double PressSeen() const override { return seen_; }
    void Forget() override { seen_ = 0; }

 private:
    void Read();
    void WriteQueued();
    bool Write(std::size_t press);
    void QueryConnection() const;
    bool Finish(BOOL done, OVERLAPPED& overlapped);

    virtual_touchpad::TouchpadControl& touchpad_;
    const Queries queries_;
    HANDLE file_;
    HANDLE readEvent_;
    HANDLE writeEvent_;
    std::atomic<bool> stop_{false};
    std::atomic<double> seen_{0};
    vela::SlimMutex mutex_;  // guards: queue_
    vela::SlimConditionVariable queued_;
    std::deque<std::size_t> queue_;
    std::thread writer_;  // only for WritesOn::AThreadOfItsOwn
    std::thread reader_;
};

}  // namespace bench
