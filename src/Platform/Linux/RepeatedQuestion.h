#pragma once

#include "Platform/RunLoop.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace orvelle {

/// A question to a peer that is put again, after growing pauses, until it is answered. Main thread
/// only.
class RepeatedQuestion {
public:
    static constexpr Seconds firstPause = 0.5;
    static constexpr Seconds longestPause = 60; ///< each failure doubles the pause up to this
    static constexpr int mostAtOnce = 3;        ///< that have neither been answered nor failed

    using Outcome = std::function<void(bool isAnswered)>;

    /// `put` asks once, without waiting, and calls its argument when the answer is there or will
    /// not come. That call may come when the question has gone.
    RepeatedQuestion(RunLoop& runLoop, std::function<void(Outcome)> put)
        : runLoop_(runLoop), put_(std::move(put)) {}
    RepeatedQuestion(const RepeatedQuestion&) = delete;
    RepeatedQuestion& operator=(const RepeatedQuestion&) = delete;

    /// Asks now, and begins the pauses anew.
    void ask();
    /// Whether the last one to end was answered.
    bool isAnswered() const { return isAnswered_; }

private:
    void put();
    void hear(std::uint64_t number, bool isAnswered);

    RunLoop& runLoop_;
    std::function<void(Outcome)> put_;
    bool isAnswered_ = false;
    int waiting_ = 0;
    std::uint64_t lastPut_ = 0;
    std::uint64_t lastAnswered_ = 0;
    Seconds pause_ = firstPause;
    Timer again_;
    Lifetime lifetime_;
};

} // namespace orvelle
