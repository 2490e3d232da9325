#include "Platform/Linux/StandardLog.h"

#include "Support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>
#include <thread>

namespace orvelle {
namespace {

class StandardLogTest : public testing::Test {
protected:
    StandardLogTest()
        : descriptor(open((folder / "log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600)) {}
    ~StandardLogTest() override { close(descriptor); }
    std::string text() const { return fileBytes(folder / "log"); }

    TemporaryFolder folder;
    int descriptor;
};

TEST_F(StandardLogTest, PlainLinesNameTypeAndLevel) {
    StandardLog log(descriptor, StandardLog::Style::plain, LogLevel::debug);
    const Logger logger(log, "Type");
    logger.debug("detail");
    logger.info("news");
    logger.error("trouble");
    EXPECT_EQ(text(), "com.orvelle.app [Type] debug: detail\n"
                      "com.orvelle.app [Type] news\n"
                      "com.orvelle.app [Type] error: trouble\n");
}

TEST_F(StandardLogTest, JournalLinesBeginWithThePriority) {
    StandardLog log(descriptor, StandardLog::Style::journal, LogLevel::debug);
    const Logger logger(log, "Type");
    logger.debug("a");
    logger.info("b");
    logger.error("c");
    EXPECT_EQ(text(), "<7>com.orvelle.app [Type] a\n<6>com.orvelle.app [Type] b\n"
                      "<3>com.orvelle.app [Type] c\n");
}

TEST_F(StandardLogTest, DebugLinesAreLeftOutUnlessWanted) {
    StandardLog log(descriptor, StandardLog::Style::plain, LogLevel::info);
    const Logger logger(log, "Type");
    logger.debug("detail");
    EXPECT_EQ(text(), "");
}

TEST_F(StandardLogTest, ControlsOfEightBitsAreEscapedToo) {
    StandardLog log(descriptor, StandardLog::Style::plain, LogLevel::info);
    const Logger logger(log, "Type");
    logger.info("\xC2\x9B"
                "31m \x9D"
                "0;title\xC2\x9C \xC2\xA0\xE2\x80\xA6 \xFF\xC2");
    EXPECT_EQ(text(), "com.orvelle.app [Type] \\xc2\\x9b31m \\x9d0;title\\xc2\\x9c "
                      "\xC2\xA0\xE2\x80\xA6 \\xff\\xc2\n");
}

TEST_F(StandardLogTest, ALongMessageIsCut) {
    StandardLog log(descriptor, StandardLog::Style::plain, LogLevel::info);
    Logger(log, "Type").info(std::string(1'000'000, 'x'));
    Logger(log, "Type").info(std::string(1'000'000, '\a'));
    const auto written = text();
    EXPECT_LT(written.size(), 20'000u);
    EXPECT_EQ(std::ranges::count(written, '\n'), 2);
    EXPECT_NE(written.find("x... (991831 more bytes)\n"), written.npos)
        << written.substr(8100, 100);
}

TEST_F(StandardLogTest, MessageCannotPoseAsAnotherLine) {
    StandardLog log(descriptor, StandardLog::Style::journal, LogLevel::info);
    const Logger logger(log, "Type");
    logger.info("first\n<3>forged\r\x1B[31m ü");
    EXPECT_EQ(text(), "<6>com.orvelle.app [Type] first\\n<3>forged\\x0d\\x1b[31m ü\n");
}

TEST_F(StandardLogTest, LinesOfSeveralThreadsDoNotMix) {
    StandardLog log(descriptor, StandardLog::Style::plain, LogLevel::info);
    const auto work = [&](char letter) {
        const Logger logger(log, "Type");
        for (int count = 0; count < 200; ++count)
            logger.info(std::string(5000, letter));
    };
    std::thread first(work, 'a');
    std::thread second(work, 'b');
    first.join();
    second.join();
    std::istringstream lines(text());
    std::string line;
    int count = 0;
    for (; std::getline(lines, line); ++count) {
        const auto message = line.substr(line.find("] ") + 2);
        ASSERT_EQ(message, std::string(5000, message[0]));
    }
    EXPECT_EQ(count, 400);
}

} // namespace
} // namespace orvelle
