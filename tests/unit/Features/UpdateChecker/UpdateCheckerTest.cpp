#include "Features/UpdateChecker/UpdateChecker.h"

#include "Features/UpdateChecker/VersionManifest.h"
#include "Foundation/JsonRecord.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/Replies.h"
#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

using OptionalText = std::optional<std::string>;

class UpdateCheckerTest : public testing::Test {
protected:
    void check(const HttpReply& reply) {
        checker->check();
        ASSERT_TRUE(http.answer(reply));
    }
    void findVersion(const std::string& version) { check(Replies::ok(Replies::manifest(version))); }
    const auto& lastLine() { return platform.logPort.lines.back(); }

    SimulatedPlatform platform;
    SimulatedHttpClient& http = platform.httpClientPort;
    std::unique_ptr<UpdateChecker> checker = std::make_unique<UpdateChecker>(platform);
};

TEST_F(UpdateCheckerTest, Version106IsUpToDate107And11AreUpdatesAnd105IsNot) {
    for (const auto* version : {"1.0.6", "1.0.5"}) {
        findVersion(version);
        EXPECT_FALSE(checker->updateAvailable) << version;
        EXPECT_EQ(lastLine().message, "App is up to date (v1.0.6)");
        EXPECT_EQ(lastLine().level, LogLevel::info);
    }
    for (const std::string version : {"1.0.7", "1.1"}) {
        findVersion(version);
        EXPECT_TRUE(checker->updateAvailable) << version;
        EXPECT_EQ(checker->latestVersion.get(), version);
        EXPECT_EQ(checker->releaseNotes.get(), "Better.");
        EXPECT_EQ(lastLine().message, "Update available: v" + version);
        EXPECT_EQ(lastLine().category, "UpdateChecker");
    }
}

TEST_F(UpdateCheckerTest, AManifestLackingBuildFailsToDecodeAndLogsTheFailure) {
    check(Replies::ok(R"({"version":"9.0","url":"a","notes":"b"})"));
    EXPECT_FALSE(checker->updateAvailable);
    EXPECT_FALSE(checker->isChecking);
    EXPECT_EQ(lastLine().message,
              "Update check failed: The data couldn’t be read because it is missing.");
    EXPECT_EQ(lastLine().level, LogLevel::error);
}

TEST_F(UpdateCheckerTest, ARelativeAddressIsAppendedToTheRootAndAnUpperCaseSchemeIsAbsolute) {
    const std::pair<const char*, OptionalText> rows[] = {
        {"downloads/app.dmg", "https://orvelle.example/downloads/app.dmg"},
        {"/downloads/app.dmg", "https://orvelle.example//downloads/app.dmg"},
        {"HTTPS://Example.org/a", "HTTPS://Example.org/a"},
        {"http://example.org/a", "http://example.org/a"},
        {"", "https://orvelle.example/"},
        {"two words", std::nullopt}};
    for (const auto& [url, expected] : rows) {
        check(Replies::ok(Replies::manifest("2.0", url)));
        EXPECT_EQ(checker->downloadURL.get(), expected) << url;
        EXPECT_TRUE(checker->updateAvailable);
    }
}

TEST_F(UpdateCheckerTest, A404LogsTheStatusAndLeavesAnEarlierFinding) {
    findVersion("1.0.7");
    check({{}, 404, Replies::manifest("1.0.6")});
    EXPECT_EQ(lastLine().message, "Manifest fetch failed with non-200 status");
    EXPECT_EQ(lastLine().level, LogLevel::error);
    EXPECT_TRUE(checker->updateAvailable);
    EXPECT_EQ(checker->latestVersion.get(), "1.0.7");
}

TEST_F(UpdateCheckerTest, AnyStatusBut200IsRefusedWhateverTheBody) {
    findVersion("1.0.7");
    for (const int status : {0, 199, 201, 202, 203, 204, 206, 299, 304, 500}) {
        check({{}, status, Replies::manifest("9.0")});
        EXPECT_EQ(lastLine().message, "Manifest fetch failed with non-200 status") << status;
        EXPECT_EQ(checker->latestVersion.get(), "1.0.7") << status;
        EXPECT_FALSE(checker->isChecking) << status;
    }
}

TEST_F(UpdateCheckerTest, AManifestThatIsNoLongerNewerClearsTheFinding) {
    findVersion("1.0.7");
    findVersion("1.0.6");
    EXPECT_FALSE(checker->updateAvailable);
    EXPECT_EQ(checker->latestVersion.get(), std::nullopt);
    EXPECT_EQ(checker->releaseNotes.get(), std::nullopt);
    EXPECT_EQ(checker->downloadURL.get(), std::nullopt);
}

TEST_F(UpdateCheckerTest, ARequestThatFailsLeavesTheFinding) {
    findVersion("1.0.7");
    check(SimulatedHttpClient::failure("No route"));
    EXPECT_EQ(lastLine().message, "Update check failed: No route");
    EXPECT_TRUE(checker->updateAvailable);
    EXPECT_FALSE(checker->isChecking);
}

TEST_F(UpdateCheckerTest, TheManifestIsAskedForAfreshAndInFifteenSeconds) {
    checker->check();
    EXPECT_TRUE(checker->isChecking);
    EXPECT_EQ(http.requests.at(0),
              (HttpRequest{.url = "https://orvelle.example/orvelle.json",
                           .timeout = 15,
                           .cachePolicy = HttpCachePolicy::reloadIgnoringLocalCache}));
}

TEST_F(UpdateCheckerTest, ARootOfNoUseIsLogged) {
    const TemporaryVariable root("ORVELLE_SITE_ROOT", "not an address");
    UpdateChecker misled(platform);
    int done = 0;
    misled.check([&] { ++done; });
    EXPECT_EQ(lastLine().message, "Invalid manifest URL");
    EXPECT_FALSE(misled.isChecking);
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(http.requests.empty());
}

TEST_F(UpdateCheckerTest, ChecksAtTheStartAndThenDaily) {
    checker->start();
    EXPECT_EQ(http.requests.size(), 1u);
    platform.runLoopPort.advance(86399);
    EXPECT_EQ(http.requests.size(), 1u);
    platform.runLoopPort.advance(1);
    EXPECT_EQ(http.requests.size(), 2u);
    checker->start();
    EXPECT_EQ(http.requests.size(), 3u);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u);
    checker.reset();
    EXPECT_EQ(http.waitingCount(), 0u);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
}

TEST_F(UpdateCheckerTest, WhoAsksForACheckHearsWhenItIsPublished) {
    OptionalText seen;
    checker->check([&] { seen = checker->latestVersion; });
    http.answer(Replies::ok(Replies::manifest("3.1")));
    EXPECT_EQ(seen, "3.1");
}

TEST_F(UpdateCheckerTest, OfTwoOverlappingChecksTheLastToFinishDecides) {
    checker->check();
    checker->check();
    http.answer(Replies::ok(Replies::manifest("1.0.7")));
    EXPECT_FALSE(checker->isChecking);
    http.answer(Replies::ok(Replies::manifest("1.0.6")));
    EXPECT_FALSE(checker->updateAvailable);
}

TEST_F(UpdateCheckerTest, NoMutationOfAManifestChangesTheFinding) {
    findVersion("1.0.7");
    Replies::forEachMutation(
        *Json::parse(Replies::manifest("1.0.8")),
        [&](const Json& mutated, const std::string& path, const Json& value) {
            check(Replies::ok(mutated.text()));
            if (path.empty() || !value.string()) {
                EXPECT_TRUE(lastLine().message.starts_with("Update check failed: The data"))
                    << path << " " << value.text();
                EXPECT_EQ(checker->latestVersion.get(), "1.0.7");
                return;
            }
            findVersion("1.0.7");
        });
}

TEST_F(UpdateCheckerTest, VersionsCompareNumberByNumber) {
    struct Row {
        const char* candidate;
        const char* reference;
        bool isNewer;
    };
    const Row rows[] = {{"1.0", "1.0.0", false},
                        {"1.0.0", "1.0", false},
                        {"1.0.6.1", "1.0.6", true},
                        {"1.10", "1.9", true},
                        {"1.0.2-beta.9", "1.0.6", true},
                        {"v2.0", "1.0", false},
                        {"..2", "1", true},
                        {"", "0", false},
                        {"", "1", false},
                        {"1.0.06", "1.0.6", false},
                        {"2 ", "1", false},
                        {"+2", "1", true},
                        {"1", "1.-1", true},
                        {"+-2", "-1", true},
                        {"1.+10", "1.9", true},
                        {"99999999999999999999", "1", false}};
    for (const auto& row : rows)
        EXPECT_EQ(isNewerVersion(row.candidate, row.reference), row.isNewer) << row.candidate;
}

TEST_F(UpdateCheckerTest, AReplyThatIsNoManifestAtAllSaysSo) {
    for (const char* body : {"[]", "nonsense", "7"}) {
        check(Replies::ok(body));
        EXPECT_EQ(lastLine().message,
                  std::string("Update check failed: ") + JsonRecord::isInWrongFormat)
            << body;
    }
}

} // namespace
} // namespace orvelle
