#include "Platform/Linux/LinuxWorkspace.h"

#include "Platform/Simulated/SimulatedMachine.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"
#include "adapters/EventLoopWait.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orvelle {
namespace {

const std::string powerPage = "x-apple.systempreferences:com.apple.settings.battery";

class LinuxWorkspaceTest : public testing::Test {
protected:
    /// The line of the program that `url` started on a desktop; empty when none was.
    std::string opened(const char* desktop, const std::string& url) {
        programs.remove("started");
        LinuxWorkspace workspace(log, {QString::fromLatin1(desktop), path()});
        const auto lines = log.lines.size();
        workspace.open(url);
        if (log.lines.size() > lines)
            return "";
        EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(programs.path("started")); }));
        std::ifstream file(programs.path("started"));
        std::string line;
        std::getline(file, line);
        return line;
    }
    QString path() const { return QString::fromStdString(programs.path()); }

    TemporaryFolder programs;
    SimulatedLog log;
};

TEST_F(LinuxWorkspaceTest, ThePowerPageIsThatOfTheRunningDesktop) {
    for (const auto* name : {"gnome-control-center", "systemsettings",
                             "xfce4-power-manager-settings", "cinnamon-settings"})
        programs.writeProgram(name);
    EXPECT_EQ(opened("ubuntu:GNOME", powerPage), "gnome-control-center power");
    EXPECT_EQ(opened("KDE", powerPage), "systemsettings kcm_powerdevilprofilesconfig");
    EXPECT_EQ(opened("XFCE", powerPage), "xfce4-power-manager-settings ");
    EXPECT_EQ(opened("X-Cinnamon", powerPage), "cinnamon-settings power");
}

TEST_F(LinuxWorkspaceTest, TheCalendarIsThatOfTheRunningDesktopElseAnyThatIsInstalled) {
    for (const auto* name : {"evolution", "gnome-calendar", "merkuro-calendar", "orage"})
        programs.writeProgram(name);
    EXPECT_EQ(opened("KDE", "ical://"), "merkuro-calendar ");
    EXPECT_EQ(opened("XFCE", "ical://"), "orage ");
    EXPECT_EQ(opened("ubuntu:GNOME", "ical://"), "gnome-calendar ");
    for (const auto* name : {"gnome-calendar", "merkuro-calendar", "orage"})
        programs.remove(name);
    EXPECT_EQ(opened("GNOME", "ical://"), "evolution calendar:");
}

TEST_F(LinuxWorkspaceTest, AnUnknownDesktopGetsTheFirstInstalledPage) {
    programs.writeProgram("xfce4-power-manager-settings");
    EXPECT_EQ(opened("i3", powerPage), "xfce4-power-manager-settings ");
    EXPECT_EQ(opened("GNOME", powerPage), "xfce4-power-manager-settings ");
}

TEST_F(LinuxWorkspaceTest, OtherAddressesGoToTheDesktopsOpener) {
    programs.writeProgram("xdg-open");
    EXPECT_EQ(opened("XFCE", "mailto:help@orvelle.example?subject=A%20%E2%80%94%20B"),
              "xdg-open mailto:help@orvelle.example?subject=A%20%E2%80%94%20B");
    EXPECT_EQ(opened("XFCE", "ical://"), "") << "a foreign address is not for the opener";
}

TEST_F(LinuxWorkspaceTest, AnAddressWithoutASchemeIsRefused) {
    programs.writeProgram("xdg-open");
    EXPECT_EQ(opened("XFCE", "--help"), "");
    EXPECT_EQ(opened("XFCE", ""), "");
}

TEST_F(LinuxWorkspaceTest, AnApplicationIsFoundByItsDesktopEntryAndLaunched) {
    TemporaryFolder data;
    const TemporaryVariable home("XDG_DATA_HOME", data.path().c_str());
    data.write("applications/spotify.desktop", "[Desktop Entry]");
    data.write("applications/org.example.Player.desktop", "[Desktop Entry]");
    LinuxWorkspace workspace(log, {QStringLiteral("GNOME"), path()});
    const auto player = "file://" + data.path("applications/org.example.Player.desktop");
    EXPECT_EQ(workspace.applicationUrl("org.example.Player"), player);
    EXPECT_EQ(workspace.applicationUrl("com.spotify.client"),
              "file://" + data.path("applications/spotify.desktop"));
    EXPECT_EQ(workspace.applicationUrl("org.example.Missing"), std::nullopt);
    EXPECT_EQ(workspace.applicationUrl("../applications/spotify"), std::nullopt);

    programs.writeProgram("gio");
    EXPECT_EQ(opened("GNOME", player),
              "gio launch " + data.path("applications/org.example.Player.desktop"));
}

TEST_F(LinuxWorkspaceTest, WhatNothingOpensIsLoggedOnce) {
    LinuxWorkspace workspace(log, {QStringLiteral("GNOME"), path()});
    workspace.open(powerPage);
    workspace.open(powerPage);
    workspace.open("https://orvelle.example/");
    ASSERT_EQ(log.lines.size(), 2u);
    EXPECT_EQ(log.lines[0].message, "Nothing here opens " + powerPage);
    EXPECT_EQ(log.lines[1].message, "Nothing here opens https://orvelle.example/");
}

} // namespace
} // namespace orvelle
