#include "Platform/Linux/XdgLoginItem.h"

#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

class XdgLoginItemTest : public testing::Test {
protected:
    XdgLoginItem makeItem(const std::string& executable = "/usr/bin/orvelle") {
        return {files, log, executable};
    }
    /// The Exec line of an entry that starts this path.
    std::string execLine(const std::string& executable) {
        EXPECT_TRUE(makeItem(executable).enroll());
        const auto entry = fileBytes(path);
        const auto start = entry.find("Exec=");
        return entry.substr(start, entry.find('\n', start) - start);
    }

    TemporaryFolder home;
    const TemporaryVariable configHome{"XDG_CONFIG_HOME", home.path().c_str()};
    const std::string path = home / "autostart/orvelle.desktop";
    PosixFileSystem files;
    SimulatedLog log;
};

TEST_F(XdgLoginItemTest, EnrollingWritesAnEntryOfTheAutostartFolder) {
    auto item = makeItem();
    EXPECT_EQ(item.path(), path);
    EXPECT_TRUE(item.enroll());
    EXPECT_EQ(fileBytes(path), "[Desktop Entry]\nType=Application\nName=Orvelle\n"
                               "Exec=\"/usr/bin/orvelle\"\nIcon=orvelle\nTerminal=false\n"
                               "StartupNotify=false\n");
    EXPECT_TRUE(item.enroll()) << "a second time changes nothing";
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(XdgLoginItemTest, WithdrawingTakesTheEntryAwayAndIsDoneWithoutOne) {
    auto item = makeItem();
    ASSERT_TRUE(item.enroll());
    EXPECT_TRUE(item.withdraw());
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_TRUE(item.withdraw());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(XdgLoginItemTest, ThePathIsQuotedAsTheEntrysReadersUndoIt) {
    EXPECT_EQ(execLine("/opt/my tools/orvelle"), R"(Exec="/opt/my tools/orvelle")");
    EXPECT_EQ(execLine("/opt/100%/orvelle"), R"(Exec="/opt/100%%/orvelle")");
    EXPECT_EQ(execLine(R"(/opt/"a"/orvelle)"), R"(Exec="/opt/\\"a\\"/orvelle")");
    EXPECT_EQ(execLine("/opt/it's/$HOME/`b`"), R"(Exec="/opt/it's/\\$HOME/\\`b\\`")");
    EXPECT_EQ(execLine(R"(/opt/back\slash)"), R"(Exec="/opt/back\\\\slash")");
}

TEST_F(XdgLoginItemTest, AFolderThatCannotBeWrittenIsToldInOneLine) {
    home.write("autostart", "a file where the folder belongs");
    EXPECT_FALSE(makeItem().enroll());
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines.front().level, LogLevel::error);
    EXPECT_EQ(log.lines.front().message,
              path + " cannot be written: something else is in the file's place; the program will "
                     "not start at login");
}

TEST_F(XdgLoginItemTest, AnEntryThatCannotBeRemovedIsToldInOneLine) {
    home.write("autostart/orvelle.desktop/inside", "a folder where the entry belongs");
    EXPECT_FALSE(makeItem().withdraw());
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines.front().level, LogLevel::error);
    EXPECT_NE(log.lines.front().message.find(path + " cannot be removed"), std::string::npos);
}

} // namespace
} // namespace orvelle
