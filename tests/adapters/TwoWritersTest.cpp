#include "Core/ListFile.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace orvelle {
namespace {

struct Machine : SimulatedPlatform {
    PosixFileSystem disk;
    FileSystem& fileSystem() override { return disk; }
};

/// A list that another process saves too, on a disk so slow that its save takes a second.
TEST(TwoWritersTest, ASaveWaitsForAnotherProcessThatSavesForLong) {
    const TemporaryFolder home;
    const TemporaryVariable data("XDG_DATA_HOME", home.path().c_str());
    Machine machine;
    const auto folder = home / "Orvelle";
    const auto path = folder + "/numbers.json";
    const auto isNumber = [](const Json& json) { return json.integer(); };
    ListFile<std::int64_t> list(machine, "numbers.json",
                                {isNumber, [](auto number) { return Json(number); }, ""},
                                {[](const auto&) {}, [](const auto&) {}});
    PosixFileSystem other;
    auto held = other.lock(folder, 0);
    ASSERT_TRUE(held);
    std::thread saving([&] {
        using Clock = std::chrono::steady_clock;
        const auto end = Clock::now() + std::chrono::seconds(1);
        while (Clock::now() < end && !std::filesystem::exists(path))
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_TRUE(other.write(path, "[7]"));
        held.reset();
    });
    list.save({1});
    machine.runLoopPort.runPosted();
    saving.join();
    EXPECT_EQ(other.read(path, 100).bytes, "[7,1]");
}

} // namespace
} // namespace orvelle
