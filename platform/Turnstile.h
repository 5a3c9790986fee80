// Lets threads in one at a time, in the order in which they asked.
#pragma once

#include <cstdint>

#include "platform/SlimMutex.h"

namespace vela {

// A lock serves its waiters in any order, and a thread may be set aside before it gets to one. Here
// a place in the order is drawn first, and whatever is prepared in between, Await lets its owner in
// only after everybody who drew earlier. A mutex held meanwhile would have the preparing itself
// wait. Any thread.
class Turnstile {
 public:
    // A place in the order, to be drawn and given back by one thread.
    class Turn {
     public:
        explicit Turn(Turnstile& turnstile)
            : turnstile_(turnstile), number_(turnstile.DrawNumber()) {}
        // Lets the next one in, also when its owner never went in; waits for the earlier ones
        // first.
        ~Turn() { turnstile_.Pass(number_); }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

        // Returns when all earlier turns are over.
        void Await() const { turnstile_.Await(number_); }

     private:
        Turnstile& turnstile_;
        const std::uint64_t number_;
    };

 private:
    std::uint64_t DrawNumber();
    void Await(std::uint64_t number);
    void Pass(std::uint64_t number);

    SlimMutex mutex_;  // guards: both numbers
    SlimConditionVariable passed_;
    std::uint64_t nextNumber_ = 0;
    std::uint64_t servedNumber_ = 0;
};

}  // namespace vela
