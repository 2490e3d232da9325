#include "App/DefaultsCommand.h"

#include "Platform/FileUserDefaults.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedRunLoop.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orvelle {
namespace {

class DefaultsCommandTest : public testing::Test {
protected:
    int run(const std::vector<std::string>& arguments) {
        output.str({});
        errors.str({});
        DefaultsFile store(fileSystem, log);
        return runDefaultsCommand(arguments, store, output, errors);
    }
    DefaultsValue stored(const std::string& key) {
        return DefaultsFile(fileSystem, log).value(key).value_or(Date::distantPast());
    }

    SimulatedFileSystem fileSystem;
    SimulatedLog log;
    std::ostringstream output;
    std::ostringstream errors;
};

TEST_F(DefaultsCommandTest, WritesEachType) {
    EXPECT_EQ(run({"write", "text", "5"}), 0);
    EXPECT_EQ(run({"write", "forced", "-string", "-bool"}), 0);
    EXPECT_EQ(run({"write", "flag", "-bool", "yes"}), 0);
    EXPECT_EQ(run({"write", "whole", "-int", "-7"}), 0);
    EXPECT_EQ(run({"write", "real", "-float", "5"}), 0);
    EXPECT_EQ(stored("text"), DefaultsValue(std::string("5")));
    EXPECT_EQ(stored("forced"), DefaultsValue(std::string("-bool")));
    EXPECT_EQ(stored("flag"), DefaultsValue(true));
    EXPECT_EQ(stored("whole"), DefaultsValue(std::int64_t{-7}));
    EXPECT_EQ(stored("real"), DefaultsValue(5.0));
}

TEST_F(DefaultsCommandTest, BooleanTakesThreeWordsForEachValue) {
    for (const std::string word : {"true", "yes", "1"}) {
        EXPECT_EQ(run({"write", "flag", "-bool", word}), 0);
        EXPECT_EQ(stored("flag"), DefaultsValue(true)) << word;
    }
    for (const std::string word : {"false", "no", "0"}) {
        EXPECT_EQ(run({"write", "flag", "-bool", word}), 0);
        EXPECT_EQ(stored("flag"), DefaultsValue(false)) << word;
    }
}

TEST_F(DefaultsCommandTest, ReadsOneValue) {
    run({"write", "text", "two words"});
    EXPECT_EQ(run({"read", "text"}), 0);
    EXPECT_EQ(output.str(), "two words\n");
    run({"write", "real", "-float", "2.5"});
    EXPECT_EQ(run({"read", "real"}), 0);
    EXPECT_EQ(output.str(), "2.5\n");
}

TEST_F(DefaultsCommandTest, ReadsAllSettings) {
    run({"write", "b", "-int", "1"});
    run({"write", "a", "text"});
    EXPECT_EQ(run({"read"}), 0);
    EXPECT_EQ(output.str(), "a = \"text\"\nb = 1\n");
}

TEST_F(DefaultsCommandTest, ReadingAnUnsetKeyGivesOne) {
    EXPECT_EQ(run({"read", "nothing"}), 1);
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(errors.str(), "orvelle defaults: nothing is not set\n");
}

TEST_F(DefaultsCommandTest, DeletesAKey) {
    run({"write", "a", "text"});
    EXPECT_EQ(run({"delete", "a"}), 0);
    EXPECT_EQ(run({"read", "a"}), 1);
    EXPECT_EQ(run({"delete", "a"}), 0) << "it is unset afterwards, which was asked";
}

TEST_F(DefaultsCommandTest, OtherFormsGiveTwoWithTheUsage) {
    const std::vector<std::vector<std::string>> forms{
        {},
        {"reed"},
        {"read", "a", "b"},
        {"read", ""},
        {"write"},
        {"write", "a"},
        {"write", "a", "-bool"},
        {"write", "a", "-bool", "maybe"},
        {"write", "a", "-int", "1.5"},
        {"write", "a", "-int", "99999999999999999999"},
        {"write", "a", "-float", "nan"},
        {"write", "a", "-float", "1e999"},
        {"write", "a", "-float", "1,5"},
        {"write", "a", "-date", "1"},
        {"write", "a", "-int", "1", "2"},
        {"write", "", "value"},
        {"delete"},
        {"delete", "a", "b"},
    };
    for (const auto& form : forms) {
        EXPECT_EQ(run(form), 2) << testing::PrintToString(form);
        EXPECT_NE(errors.str().find("Usage: orvelle defaults"), std::string::npos);
    }
    EXPECT_EQ(fileSystem.writeCount, 0);
}

TEST_F(DefaultsCommandTest, DiskThatRefusesGivesOne) {
    fileSystem.writable = false;
    EXPECT_EQ(run({"write", "a", "1"}), 1);
    EXPECT_EQ(errors.str(), "orvelle defaults: the settings cannot be written\n");
}

TEST_F(DefaultsCommandTest, KeepsWhatAnotherProcessWritesMeanwhile) {
    DefaultsFile store(fileSystem, log);
    run({"write", "theirs", "1"});
    EXPECT_EQ(
        runDefaultsCommand(std::vector<std::string>{"write", "ours", "2"}, store, output, errors),
        0);
    EXPECT_EQ(stored("theirs"), DefaultsValue(std::string("1")));
    EXPECT_EQ(stored("ours"), DefaultsValue(std::string("2")));
}

TEST_F(DefaultsCommandTest, RunningProgramTakesTheChangeOver) {
    SimulatedRunLoop runLoop;
    SimulatedFileWatch watch;
    FileUserDefaults running(fileSystem, runLoop, watch, log);
    running.set("own", true);
    run({"write", "requireRealNotch", "-bool", "true"});
    watch.notifyChanged();
    runLoop.runPosted();
    EXPECT_TRUE(running.boolean("requireRealNotch"));
    running.flush();
    EXPECT_EQ(stored("own"), DefaultsValue(true));
    EXPECT_EQ(stored("requireRealNotch"), DefaultsValue(true));
}

} // namespace
} // namespace orvelle
