// A thread that sleeps until it is woken, then sleeps again.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

namespace bench {

class Sleeper {
 public:
    Sleeper() : thread_(&Sleeper::Run, this) { WaitUntilAsleep(); }
    ~Sleeper() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            stop_ = true;
            condition_.notify_all();
        }
        thread_.join();
    }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    void Wake() {
        const std::lock_guard<std::mutex> lock(mutex_);
        awake_ = true;
        condition_.notify_all();
    }
    void WaitUntilAsleep() {
        for (;;) {
            const std::lock_guard<std::mutex> lock(mutex_);
            if (asleep_ && !awake_) return;
        }
    }

 private:
    void Run() {
        std::unique_lock<std::mutex> lock(mutex_);
        while (!stop_) {
            asleep_ = true;
            condition_.wait(lock, [this] { return awake_ || stop_; });
            asleep_ = awake_ = false;
        }
    }

    std::mutex mutex_;  // guards: the flags
    std::condition_variable condition_;
    bool awake_ = false;
    bool asleep_ = false;
    bool stop_ = false;
    std::thread thread_;
};

}  // namespace bench
