#include "Foundation/Subscription.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace orvelle {
namespace {

TEST(Subscription, EndsOnceHoweverOftenItIsReset) {
    int ended = 0;
    {
        Subscription subscription([&] { ++ended; });
        EXPECT_TRUE(subscription);
        subscription.reset();
        subscription.reset();
        EXPECT_FALSE(subscription);
    }
    EXPECT_EQ(ended, 1);
}

TEST(Subscription, MovesItsEndToTheNewOwner) {
    int ended = 0;
    Subscription target;
    {
        Subscription source([&] { ++ended; });
        target = std::move(source);
    }
    EXPECT_EQ(ended, 0);
    target.reset();
    EXPECT_EQ(ended, 1);
}

TEST(Subscription, AssigningEndsTheOldRegistrationFirst) {
    std::vector<int> ended;
    Subscription subscription([&] { ended.push_back(1); });
    subscription = Subscription([&] { ended.push_back(2); });
    EXPECT_EQ(ended, std::vector{1});
}

TEST(Subscription, MayBeResetWhileItEnds) {
    int ended = 0;
    Subscription subscription;
    subscription = Subscription([&] {
        ++ended;
        subscription.reset();
    });
    subscription.reset();
    EXPECT_EQ(ended, 1);
}

TEST(Lifetime, GuardedCallbackRunsWhileTheOwnerLives) {
    const Lifetime lifetime;
    int sum = 0;
    auto add = lifetime.guard([&](int amount) { sum += amount; });
    add(2);
    add(3);
    EXPECT_EQ(sum, 5);
}

TEST(Lifetime, GuardedCallbackDoesNothingOnceTheOwnerIsGone) {
    std::optional<Lifetime> lifetime(std::in_place);
    int calls = 0;
    auto call = lifetime->guard([&] { ++calls; });
    lifetime.reset();
    call();
    EXPECT_EQ(calls, 0);
}

TEST(Lifetime, GuardedCallbackMayDestroyTheOwner) {
    std::optional<Lifetime> lifetime(std::in_place);
    int calls = 0;
    auto call = lifetime->guard([&] {
        ++calls;
        lifetime.reset();
    });
    call();
    call();
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace orvelle
