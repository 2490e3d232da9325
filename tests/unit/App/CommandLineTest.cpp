#include "App/CommandLine.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Action = CommandLine::Action;

TEST(CommandLine, WithoutArgumentsRuns) {
    const auto line = CommandLine::parse({});
    EXPECT_EQ(line.action, Action::run);
    EXPECT_FALSE(line.isDemo);
    EXPECT_EQ(line.tourDirectory, std::nullopt);
}

TEST(CommandLine, HelpAndVersionWinOverWhatStandsBeforeThem) {
    EXPECT_EQ(CommandLine::parse({"--demo", "--help"}).action, Action::help);
    EXPECT_EQ(CommandLine::parse({"-h"}).action, Action::help);
    EXPECT_EQ(CommandLine::parse({"--version"}).action, Action::version);
}

TEST(CommandLine, ADemonstrationRunsWithoutATour) {
    const auto line = CommandLine::parse({"--demo"});
    EXPECT_EQ(line.action, Action::run);
    EXPECT_TRUE(line.isDemo);
    EXPECT_EQ(line.tourDirectory, std::nullopt);
}

TEST(CommandLine, WhatFollowsATourIsReadOn) {
    const auto line = CommandLine::parse({"--demo", "--tour", "pictures", "--version"});
    EXPECT_EQ(line.action, Action::version);
    EXPECT_EQ(CommandLine::parse({"--tour", "a", "b"}).complaint, "unknown option: b");
}

TEST(CommandLine, ATourIsADemonstration) {
    const auto line = CommandLine::parse({"--tour", "pictures"});
    EXPECT_EQ(line.action, Action::run);
    EXPECT_TRUE(line.isDemo);
    EXPECT_EQ(line.tourDirectory, "pictures");
}

TEST(CommandLine, DefaultsPassesEverythingOn) {
    const auto line = CommandLine::parse({"defaults", "write", "--demo", "-bool", "true"});
    EXPECT_EQ(line.action, Action::defaults);
    EXPECT_EQ(line.defaultsArguments,
              (std::vector<std::string>{"write", "--demo", "-bool", "true"}));
}

TEST(CommandLine, UnknownOptionsAndAMissingDirectoryAreMisuse) {
    EXPECT_EQ(CommandLine::parse({"--frobnicate"}).action, Action::misuse);
    EXPECT_EQ(CommandLine::parse({"--frobnicate"}).complaint, "unknown option: --frobnicate");
    EXPECT_EQ(CommandLine::parse({"--tour"}).action, Action::misuse);
    EXPECT_EQ(CommandLine::parse({"stray"}).action, Action::misuse);
}

} // namespace
} // namespace orvelle
