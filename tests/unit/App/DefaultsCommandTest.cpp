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

TEST_F(DefaultsCommandTest, AKnownKeyHasItsOwnType) {
    for (const std::string word : {"true", "yes", "1", "on", "On", "TRUE"}) {
        EXPECT_EQ(run({"write", "weatherEnabled", word}), 0);
        EXPECT_EQ(stored("weatherEnabled"), DefaultsValue(true)) << word;
    }
    for (const std::string word : {"false", "no", "0", "off", "Off", "NO"}) {
        EXPECT_EQ(run({"write", "weatherEnabled", word}), 0);
        EXPECT_EQ(stored("weatherEnabled"), DefaultsValue(false)) << word;
    }
    EXPECT_EQ(run({"write", "scrollSensitivity", "12"}), 0);
    EXPECT_EQ(run({"write", "customAccentHue", "0.25"}), 0);
    EXPECT_EQ(run({"write", "weather_humidity", "80"}), 0);
    EXPECT_EQ(run({"write", "weather_isDay", "yes"}), 0);
    EXPECT_EQ(run({"write", "weather_temperature", "-3.5"}), 0);
    EXPECT_EQ(run({"write", "themeMode", "custom"}), 0);
    EXPECT_EQ(run({"write", "animationSpeed", "1"}), 0);
    EXPECT_EQ(stored("scrollSensitivity"), DefaultsValue(12.0));
    EXPECT_EQ(stored("customAccentHue"), DefaultsValue(0.25));
    EXPECT_EQ(stored("weather_humidity"), DefaultsValue(std::int64_t{80}));
    EXPECT_EQ(stored("weather_isDay"), DefaultsValue(true));
    EXPECT_EQ(stored("weather_temperature"), DefaultsValue(-3.5));
    EXPECT_EQ(stored("themeMode"), DefaultsValue(std::string("custom")));
    EXPECT_EQ(stored("animationSpeed"), DefaultsValue(std::string("1")));
}

TEST_F(DefaultsCommandTest, WhatDoesNotFitAKnownKeyIsRefused) {
    EXPECT_EQ(run({"write", "weatherEnabled", "maybe"}), 2);
    EXPECT_EQ(errors.str(),
              "orvelle defaults: weatherEnabled takes true or false, not \"maybe\"\n");
    EXPECT_EQ(run({"write", "weatherEnabled", "2"}), 2);
    EXPECT_EQ(run({"write", "weatherEnabled", ""}), 2);
    EXPECT_EQ(run({"write", "scrollSensitivity", "much"}), 2);
    EXPECT_EQ(errors.str(), "orvelle defaults: scrollSensitivity takes a number, not \"much\"\n");
    EXPECT_EQ(run({"write", "scrollSensitivity", "5 px"}), 2);
    EXPECT_EQ(run({"write", "scrollSensitivity", "nan"}), 2);
    EXPECT_EQ(run({"write", "weather_humidity", "80.5"}), 2);
    EXPECT_EQ(errors.str(),
              "orvelle defaults: weather_humidity takes a whole number, not \"80.5\"\n");
    EXPECT_EQ(run({"write", "panelTabBarOrder", "media"}), 2);
    EXPECT_EQ(errors.str(), "orvelle defaults: panelTabBarOrder is kept by the program\n");
    EXPECT_EQ(run({"write", "weather_lastUpdated", "5"}), 2);
    EXPECT_EQ(fileSystem.writeCount, 0);
}

TEST_F(DefaultsCommandTest, ATypeThatIsGivenHoldsForAKnownKeyToo) {
    EXPECT_EQ(run({"write", "weatherEnabled", "-string", "maybe"}), 0);
    EXPECT_EQ(stored("weatherEnabled"), DefaultsValue(std::string("maybe")));
}

TEST_F(DefaultsCommandTest, AnUnknownKeyTakesAText) {
    for (const std::string word : {"true", "12", "on", ""}) {
        EXPECT_EQ(run({"write", "weatherenabled", word}), 0);
        EXPECT_EQ(stored("weatherenabled"), DefaultsValue(word));
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
    UnsavedChanges unsaved;
    FileUserDefaults running(fileSystem, runLoop, watch, log, unsaved);
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
