#include "Platform/Linux/RepeatedQuestion.h"

#include <algorithm>

namespace orvelle {

void RepeatedQuestion::ask() {
    pause_ = firstPause;
    again_.reset();
    put();
}

void RepeatedQuestion::put() {
    if (waiting_ == mostAtOnce)
        return; // the end of any of them puts it again
    ++waiting_;
    put_(lifetime_.guard(
        [this, number = ++lastPut_](bool isAnswered) { hear(number, isAnswered); }));
}

void RepeatedQuestion::hear(std::uint64_t number, bool isAnswered) {
    --waiting_;
    if (isAnswered) {
        isAnswered_ = true;
        lastAnswered_ = std::max(lastAnswered_, number);
        pause_ = firstPause;
        again_.reset();
    } else if (number > lastAnswered_) {
        isAnswered_ = false;
        again_ = runLoop_.after(pause_, [this] {
            again_.reset();
            put();
        });
        pause_ = std::min(2 * pause_, longestPause);
    }
}

} // namespace orvelle
