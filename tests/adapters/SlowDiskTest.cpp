#include "Platform/FileUserDefaults.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Support/GatedFileSystem.h"
#include "Support/StoredFiles.h"
#include "adapters/EventLoopWait.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class SlowDisk : public testing::Test {
protected:
    SlowDisk() {
        fileSystem.files[settingsPath] = R"({"a": 1})";
        defaults = std::make_unique<FileUserDefaults>(fileSystem, runLoop, watch, log, unsaved);
    }
    /// Whether the main thread serves its timers and the settings while a thread stands at `gate`.
    bool mainThreadGoesOn(const Gate& gate) {
        int ticks = 0;
        const auto timer = runLoop.every(0.01, [&] {
            ++ticks;
            defaults->set("tick", std::int64_t{ticks});
        });
        return waitUntil([&] { return ticks == 10; }) && defaults->integer("tick") == 10 &&
               gate.isReached();
    }

    GatedFileSystem fileSystem;
    SimulatedFileWatch watch;
    SimulatedLog log;
    UnsavedChanges unsaved;
    QtRunLoop runLoop;
    std::unique_ptr<FileUserDefaults> defaults;
};

TEST_F(SlowDisk, SavingDoesNotStopTheMainThread) {
    std::int64_t value = 1; // another one each time, or there is nothing to write
    for (Gate* gate : {&fileSystem.locking, &fileSystem.reading, &fileSystem.writing}) {
        gate->close();
        defaults->set("a", ++value);
        EXPECT_TRUE(waitUntil([&] { return gate->isReached(); }));
        EXPECT_TRUE(mainThreadGoesOn(*gate));
        gate->open();
        defaults->flush();
    }
    EXPECT_EQ(fileSystem.files.at(settingsPath), "{\n  \"a\": 4,\n  \"tick\": 10\n}\n");
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(SlowDisk, ReadingAnOutsideEditDoesNotStopTheMainThread) {
    fileSystem.files[settingsPath] = R"({"a": 2})";
    bool isTold = false;
    const auto changes =
        defaults->observeChanges([&] { isTold = isTold || defaults->integer("a") == 2; });
    fileSystem.reading.close();
    watch.notifyChanged();
    EXPECT_TRUE(waitUntil([&] { return fileSystem.reading.isReached(); }));
    EXPECT_TRUE(mainThreadGoesOn(fileSystem.reading));
    EXPECT_FALSE(isTold);
    fileSystem.reading.open();
    EXPECT_TRUE(waitUntil([&] { return isTold; }));
}

} // namespace
} // namespace orvelle
