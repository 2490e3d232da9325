#include "Foundation/Errand.h"

#include <gtest/gtest.h>

#include <semaphore>
#include <thread>

namespace orvelle {
namespace {

TEST(Errand, IsDoneOnceByWhoeverComesFirst) {
    int count = 0;
    Errand<int> errand([&count] { return ++count; });
    EXPECT_TRUE(errand.finish(0));
    errand.run();
    EXPECT_TRUE(errand.finish(0));
    EXPECT_EQ(errand.take(), 1);
    EXPECT_EQ(count, 1);
}

TEST(Errand, IsWaitedForWhileAnotherThreadIsAtIt) {
    std::binary_semaphore hasBegun(0);
    std::binary_semaphore mayEnd(0);
    Errand<int> errand([&] {
        hasBegun.release();
        mayEnd.acquire();
        return 1;
    });
    std::thread other([&errand] { errand.run(); });
    hasBegun.acquire();
    EXPECT_FALSE(errand.finish(0.01));
    mayEnd.release();
    EXPECT_TRUE(errand.finish(10));
    EXPECT_EQ(errand.take(), 1);
    other.join();
}

} // namespace
} // namespace orvelle
