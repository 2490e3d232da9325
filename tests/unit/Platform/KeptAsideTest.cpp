#include "Platform/KeptAside.h"

#include "Platform/Simulated/SimulatedMachine.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Names = std::vector<std::string>;

TEST(KeptAside, CopiesAreNumberedAndTheNewestFiveStay) {
    SimulatedFileSystem disk;
    for (int number = 1; number <= 12; ++number) {
        disk.files["/data/list.json"] = std::to_string(number);
        EXPECT_EQ(keepAside(disk, "/data/list.json").name,
                  "list.json.corrupt." + std::to_string(number));
    }
    EXPECT_EQ(disk.names("/data"),
              (Names{"list.json.corrupt.10", "list.json.corrupt.11", "list.json.corrupt.12",
                     "list.json.corrupt.8", "list.json.corrupt.9"}));
    EXPECT_EQ(disk.files.at("/data/list.json.corrupt.9"), "9");
}

TEST(KeptAside, ACopyWithoutANumberIsTheOldest) {
    SimulatedFileSystem disk;
    disk.files["/data/list.json.corrupt"] = "old";
    for (int count = 0; count < 5; ++count) {
        EXPECT_TRUE(disk.files.contains("/data/list.json.corrupt"));
        disk.files["/data/list.json"] = "new";
        EXPECT_TRUE(keepAside(disk, "/data/list.json").outcome);
    }
    EXPECT_FALSE(disk.files.contains("/data/list.json.corrupt"));
}

TEST(KeptAside, FilesOfOtherNamesAreLeftAlone) {
    SimulatedFileSystem disk;
    const Names strange{"list.json",
                        "list.json.corrupt.",
                        "list.json.corrupt.1x",
                        "list.json.corrupt.99999999999999999999",
                        "list.json.corrupt2",
                        "other.json.corrupt.7"};
    for (const auto& name : strange)
        disk.files["/data/" + name] = "";
    EXPECT_EQ(keepAside(disk, "/data/list.json").name, "list.json.corrupt.1");
    EXPECT_EQ(disk.names("/data").size(), strange.size());
}

TEST(KeptAside, ARefusalLeavesTheFileAndItsCopies) {
    SimulatedFileSystem disk;
    disk.files = {{"/data/list.json", "bad"}, {"/data/list.json.corrupt.3", "old"}};
    const auto before = disk.files;
    disk.writable = false;
    disk.refusal = WriteFailure::denied;
    EXPECT_EQ(keepAside(disk, "/data/list.json").outcome.failure(), WriteFailure::denied);
    EXPECT_EQ(disk.files, before);
}

} // namespace
} // namespace orvelle
