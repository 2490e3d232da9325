#include "Platform/DefaultsStorage.h"

#include "Platform/Simulated/SimulatedMachine.h"
#include "Support/StoredFiles.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

/// Other processes hold the lock. During each wait one of them may save a key of its own.
class SharedFileSystem : public SimulatedFileSystem {
public:
    int savesOfOthers = 0;
    int waits = 0;

    Subscription lock(const std::string&, Seconds patience) override {
        if (patience <= 0)
            return {};
        ++waits;
        if (savesOfOthers == 0)
            return othersHaveHung ? Subscription() : Subscription([] {});
        others.insert_or_assign("other" + std::to_string(savesOfOthers), Json(true));
        files[settingsPath] = Json(others).text();
        --savesOfOthers;
        return {};
    }

    bool othersHaveHung = false;
    Json::Object others;
};

class DefaultsStorageTest : public testing::Test {
protected:
    DefaultsStorage::Outcome save() {
        const DefaultsCopy own{{{"own", Json(true)}}, {{"own", 1}}};
        return DefaultsStorage(fileSystem).save(own, 2, DefaultsStorage::Insist::yes);
    }

    SharedFileSystem fileSystem;
};

TEST_F(DefaultsStorageTest, ASaveAmongManyWritersWaitsForItsTurn) {
    fileSystem.savesOfOthers = 5;
    const auto outcome = save();
    EXPECT_EQ(outcome.result, DefaultsStorage::Result::saved);
    EXPECT_EQ(outcome.document->size(), 6u);
    EXPECT_EQ(fileSystem.waits, 6);
}

TEST_F(DefaultsStorageTest, AWriterThatWritesNothingHasHungAndIsPassedOver) {
    fileSystem.othersHaveHung = true;
    EXPECT_EQ(save().result, DefaultsStorage::Result::saved);
    EXPECT_EQ(fileSystem.waits, 1);
}

TEST_F(DefaultsStorageTest, WritersThatNeverEndAreNotWaitedForForever) {
    fileSystem.savesOfOthers = 1000;
    EXPECT_EQ(save().result, DefaultsStorage::Result::saved);
    EXPECT_EQ(fileSystem.waits, 10);
}

} // namespace
} // namespace orvelle
