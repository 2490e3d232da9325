#include "Foundation/Published.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace orvelle {
namespace {

TEST(Published, DeliversThePresentValueAtOnceAndEveryLaterOne) {
    Published<int> number(1);
    std::vector<int> seen;
    const auto subscription = number.observe([&](int value) { seen.push_back(value); });
    number = 2;
    number = 2;
    EXPECT_EQ(seen, (std::vector{1, 2, 2}));
}

TEST(Published, ObserverHearsNothingAfterItsSubscriptionEnds) {
    Published<int> number;
    int calls = 0;
    auto subscription = number.observe([&](int) { ++calls; });
    subscription.reset();
    number = 1;
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(subscription);
}

TEST(Published, SubscriptionMayOutliveTheValue) {
    Subscription subscription;
    {
        Published<int> number;
        subscription = number.observe([](int) {});
    }
    subscription.reset();
}

TEST(Published, ObserverMayUnsubscribeItselfWhileCalled) {
    Published<int> number;
    int calls = 0;
    Subscription subscription;
    subscription = number.observe([&](int value) {
        ++calls;
        if (value == 1)
            subscription.reset();
    });
    number = 1;
    number = 2;
    EXPECT_EQ(calls, 2);
}

TEST(Published, ObserverMayUnsubscribeALaterOneWhileCalled) {
    Published<int> number;
    Subscription later;
    const auto first = number.observe([&](int value) {
        if (value == 1)
            later.reset();
    });
    std::vector<int> seen;
    later = number.observe([&](int value) { seen.push_back(value); });
    number = 1;
    EXPECT_EQ(seen, std::vector{0});
}

TEST(Published, ObserverMaySubscribeAnotherWhileCalled) {
    Published<int> number;
    std::vector<int> seen;
    Subscription inner;
    const auto outer = number.observe([&](int value) {
        if (value == 1)
            inner = number.observe([&](int delivered) { seen.push_back(delivered); });
    });
    number = 1;
    EXPECT_EQ(seen, std::vector{1});
    number = 2;
    EXPECT_EQ(seen, (std::vector{1, 2}));
}

TEST(Published, ObserverMayAssignWhileCalled) {
    Published<int> number;
    const auto clamp = number.observe([&](int value) {
        if (value > 10)
            number = 10;
    });
    int last = 0;
    const auto subscription = number.observe([&](int) { last = number.get(); });
    number = 99;
    EXPECT_EQ(number.get(), 10);
    EXPECT_EQ(last, 10);
}

TEST(Published, ObserverMayDestroyTheValueWhileCalled) {
    std::optional<Published<std::string>> text;
    text.emplace("present");
    std::string seen;
    const auto first = text->observe([&](const std::string& value) {
        if (value == "end")
            text.reset();
        seen = value;
    });
    *text = std::string("end");
    EXPECT_EQ(seen, "end");
    EXPECT_FALSE(text);
}

TEST(Published, EffectRunsAtEachAssignmentBeforeTheObservers) {
    std::vector<std::string> order;
    Published<int> number(0, [&](int) { order.push_back("effect"); });
    const auto subscription = number.observe([&](int) { order.push_back("observer"); });
    number = 1;
    EXPECT_EQ(order, (std::vector<std::string>{"observer", "effect", "observer"}));
}

TEST(Published, UpdatePublishesOnce) {
    Published<std::vector<int>> list;
    int calls = 0;
    const auto subscription = list.observe([&](const auto&) { ++calls; });
    list.update([](auto& values) { values = {1, 2, 3}; });
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(list->size(), 3u);
}

TEST(Event, ObserverMayFireItAgainWhileCalled) {
    Event<int> event;
    std::vector<int> seen;
    const auto subscription = event.observe([&](int value) {
        seen.push_back(value);
        if (value > 0)
            event(value - 1);
    });
    event(2);
    EXPECT_EQ(seen, (std::vector{2, 1, 0}));
}

} // namespace
} // namespace orvelle
