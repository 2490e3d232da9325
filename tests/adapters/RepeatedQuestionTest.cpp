#include "Platform/Linux/RepeatedQuestion.h"

#include "Platform/Simulated/SimulatedRunLoop.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace orvelle {
namespace {

class RepeatedQuestionTest : public testing::Test {
protected:
    void end(std::size_t number, bool isAnswered) { asked.at(number)(isAnswered); }

    SimulatedRunLoop loop;
    std::vector<RepeatedQuestion::Outcome> asked;
    std::vector<Seconds> times;
    std::optional<bool> reply;
    std::optional<RepeatedQuestion> question{std::in_place, loop,
                                             [this](const RepeatedQuestion::Outcome& outcome) {
                                                 asked.push_back(outcome);
                                                 times.push_back(loop.monotonicNow());
                                                 if (reply)
                                                     outcome(*reply);
                                             }};
};

TEST_F(RepeatedQuestionTest, PausesGrowUpToTheLongestUntilAnAnswerComes) {
    reply = false;
    question->ask();
    loop.advance(64);
    EXPECT_EQ(times, (std::vector<Seconds>{0, 0.5, 1.5, 3.5, 7.5, 15.5, 31.5, 63.5}));
    loop.advance(240);
    EXPECT_EQ(times.size(), 12u) << "then one each " << RepeatedQuestion::longestPause << " s";
    reply = true;
    loop.advance(60);
    EXPECT_TRUE(question->isAnswered());
    const auto count = times.size();
    loop.advance(600);
    EXPECT_EQ(times.size(), count);
}

TEST_F(RepeatedQuestionTest, AskingAnewBeginsThePausesAnew) {
    reply = false;
    question->ask();
    loop.advance(10);
    times.clear();
    question->ask();
    loop.advance(2);
    EXPECT_EQ(times, (std::vector<Seconds>{10, 10.5, 11.5}));
}

TEST_F(RepeatedQuestionTest, NoMoreThanAFewWaitAtOnce) {
    for (int turn = 0; turn < 10; ++turn)
        question->ask();
    ASSERT_EQ(asked.size(), static_cast<std::size_t>(RepeatedQuestion::mostAtOnce));
    end(0, false);
    loop.advance(RepeatedQuestion::firstPause);
    EXPECT_EQ(asked.size(), static_cast<std::size_t>(RepeatedQuestion::mostAtOnce) + 1);
}

TEST_F(RepeatedQuestionTest, AnEarlierOneThatFailsLateAsksNothingMore) {
    question->ask();
    question->ask();
    end(1, true);
    end(0, false);
    loop.advance(600);
    EXPECT_EQ(asked.size(), 2u);
    EXPECT_TRUE(question->isAnswered());
}

TEST_F(RepeatedQuestionTest, AnAnswerToAQuestionThatHasGoneIsNobodys) {
    question->ask();
    question.reset();
    end(0, false);
    EXPECT_EQ(loop.timerCount(), 0u);
}

} // namespace
} // namespace orvelle
