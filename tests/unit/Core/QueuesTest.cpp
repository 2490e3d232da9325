#include "Core/SerialQueue.h"
#include "Core/TaskQueue.h"
#include "Support/ThreadedRunLoop.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace orvelle {
namespace {

TEST(SerialQueue, DoesOnePieceAfterTheOtherInTheOrderOfAsking) {
    ThreadedRunLoop runLoop;
    std::string done;
    SerialQueue queue(runLoop, "test");
    for (const char piece : {'a', 'b', 'c'})
        queue.async([&done, piece] { done += piece; });
    runLoop.awaitWork();
    EXPECT_EQ(done, "a");
    EXPECT_EQ(runLoop.detachCount, 1) << "the next one waits for the first one's end";
    runLoop.complete();
    runLoop.awaitWork();
    EXPECT_EQ(done, "ab");
    runLoop.complete();
    runLoop.awaitWork();
    EXPECT_EQ(done, "abc");
    runLoop.complete();
    EXPECT_EQ(runLoop.detachCount, 3);
    queue.async([&done] { done += 'd'; });
    runLoop.awaitWork();
    EXPECT_EQ(done, "abcd");
}

TEST(SerialQueue, DoesWhatWasAskedForAfterItHasGone) {
    SimulatedRunLoop runLoop;
    std::string done;
    {
        SerialQueue queue(runLoop, "test");
        queue.async([&done] { done += 'a'; });
        queue.async([&done] { done += 'b'; });
    }
    runLoop.runPosted();
    EXPECT_EQ(done, "ab");
}

class TaskQueueTest : public testing::Test {
protected:
    std::vector<std::string> events;
    std::function<void()> finished_;
    TaskQueue queue;

    void finish() { std::exchange(finished_, nullptr)(); }

    TaskQueue::Task task(const std::string& name) {
        return [this, name](std::function<void()> finished) {
            events.push_back(name);
            finished_ = std::move(finished);
            return Subscription([this, name] { events.push_back(name + " ends"); });
        };
    }
};

TEST_F(TaskQueueTest, ATaskBeginsWhenTheOneBeforeItHasFinished) {
    queue.add(task("a"));
    queue.add(task("b"));
    EXPECT_EQ(events, std::vector<std::string>{"a"});
    finish();
    EXPECT_EQ(events, (std::vector<std::string>{"a", "a ends", "b"}));
    finish();
    queue.add(task("c"));
    EXPECT_EQ(events, (std::vector<std::string>{"a", "a ends", "b", "b ends", "c"}));
}

TEST_F(TaskQueueTest, ATaskWithNothingToWaitForHoldsNobodyUp) {
    queue.add([this](const auto&) {
        events.emplace_back("nothing");
        return Subscription();
    });
    queue.add(task("a"));
    EXPECT_EQ(events, (std::vector<std::string>{"nothing", "a"}));
}

} // namespace
} // namespace orvelle
