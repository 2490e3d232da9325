#include "Platform/Linux/LinuxWorkspace.h"

#include "Foundation/FileURL.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"
#include "adapters/EventLoopWait.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <sstream>

namespace orvelle {
namespace {

const std::string powerPage = "x-apple.systempreferences:com.apple.settings.battery";

class LinuxWorkspaceTest : public testing::Test {
protected:
    using Deed = std::function<void(LinuxWorkspace&)>;

    /// The line of the program that was started on a desktop; empty when none was.
    std::string startedBy(const Deed& deed, const char* desktop = "GNOME") {
        programs.remove("started");
        LinuxWorkspace workspace(runLoop, log, {QString::fromLatin1(desktop), path()},
                                 [this](const std::string& url) { shown.push_back(url); });
        const auto settled = log.lines.size() + shown.size();
        deed(workspace);
        EXPECT_TRUE(waitUntil([&] {
            return log.lines.size() + shown.size() > settled ||
                   std::filesystem::exists(programs.path("started"));
        }));
        std::ifstream file(programs.path("started"));
        std::string line;
        std::getline(file, line);
        return line;
    }
    std::string opened(const char* desktop, const std::string& url) {
        return startedBy([&](LinuxWorkspace& workspace) { workspace.open(url); }, desktop);
    }
    std::string opened(const char* desktop, Date moment) {
        return startedBy([&](LinuxWorkspace& workspace) { workspace.openCalendar(moment); },
                         desktop);
    }
    std::string openedFromNetwork(const std::string& url) {
        return startedBy([&](LinuxWorkspace& workspace) { workspace.openFromNetwork(url); });
    }
    /// Of a file in the temporary folder, with this content.
    std::string openedDocument(const std::string& name, const std::string& content) {
        programs.write(name, content);
        return startedBy([&](LinuxWorkspace& workspace) {
            workspace.openDocument(FileURL::ofPath(programs.path(name)));
        });
    }
    QString path() const { return QString::fromStdString(programs.path()); }

    /// 2026-01-15, noon in Greenwich.
    static constexpr Date noon = SimulatedRunLoop::defaultStart;
    TemporaryFolder programs;
    SimulatedLog log;
    std::vector<std::string> shown; ///< in their folder
    QtRunLoop runLoop;
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

TEST_F(LinuxWorkspaceTest, TheCalendarShowsADayWhereItTakesOne) {
    for (const auto* name : {"evolution", "gnome-calendar", "orage"})
        programs.writeProgram(name);
    EXPECT_EQ(opened("ubuntu:GNOME", noon), "gnome-calendar --date=01/15/2026");
    EXPECT_EQ(opened("XFCE", noon), "orage ");
    EXPECT_EQ(opened("i3", noon), "gnome-calendar --date=01/15/2026");
    for (const auto* name : {"gnome-calendar", "orage"})
        programs.remove(name);
    EXPECT_EQ(opened("GNOME", noon), "evolution calendar:");
    programs.remove("evolution");
    EXPECT_EQ(opened("GNOME", noon), "") << "nothing takes it";
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

TEST_F(LinuxWorkspaceTest, OnlyPagesMailsAndSettingsReachAnOpener) {
    programs.writeProgram("xdg-open");
    programs.writeProgram("gio");
    for (const auto* url :
         {"--help", "", "file:///usr/share/applications/xterm.desktop", "file:///etc/hosts",
          "steam://run/1", "javascript:alert(1)", "httpx://orvelle.example/", "smb://host/share",
          "x-apple.unknown:page", "ical://elsewhere", "//orvelle.example/", "HtTpS"})
        EXPECT_EQ(opened("XFCE", url), "") << url;
    EXPECT_EQ(opened("XFCE", "HTTP://orvelle.example/"), "xdg-open http://orvelle.example/");
}

TEST_F(LinuxWorkspaceTest, FromTheNetworkOnlyHttpsReachesAnOpener) {
    programs.writeProgram("xdg-open");
    programs.writeProgram("gnome-control-center");
    programs.writeProgram("gnome-calendar");
    for (const auto* url :
         {"http://orvelle.example/", "mailto:a@orvelle.example", "file:///etc/hosts", "ical://",
          powerPage.c_str(), "ftp://orvelle.example/", "https"})
        EXPECT_EQ(openedFromNetwork(url), "") << url;
    EXPECT_EQ(openedFromNetwork("https://orvelle.example/get"),
              "xdg-open https://orvelle.example/get");
}

TEST_F(LinuxWorkspaceTest, ADocumentGoesToTheDesktopsOpener) {
    programs.writeProgram("xdg-open");
    EXPECT_EQ(openedDocument("a b.txt", "About [Desktop Entry] files"),
              "xdg-open file://" + programs.path("a%20b.txt"));
    EXPECT_EQ(openedDocument("bare", ""), "xdg-open file://" + programs.path("bare"));
    EXPECT_TRUE(shown.empty());
}

TEST_F(LinuxWorkspaceTest, AnApplicationsEntryIsShownInItsFolderAndNeverRun) {
    programs.writeProgram("xdg-open");
    programs.writeProgram("gio");
    const std::string entry = "[Desktop Entry]\nType=Application\nExec=touch /tmp/harm\n";
    std::vector<std::string> expected;
    for (const auto* name : {"game.desktop", "GAME.DESKTOP", "game.kdelnk", "game", "game.txt"}) {
        EXPECT_EQ(openedDocument(name, entry), "") << name;
        expected.push_back(FileURL::ofPath(programs.path(name)));
    }
    EXPECT_EQ(openedDocument("commented", "# A game\n\n" + entry), "");
    expected.push_back(FileURL::ofPath(programs.path("commented")));
    std::filesystem::create_symlink(programs.path("game.desktop"), programs.path("link.txt"));
    EXPECT_EQ(startedBy([&](LinuxWorkspace& workspace) {
                  workspace.openDocument(FileURL::ofPath(programs.path("link.txt")));
              }),
              "");
    expected.push_back(FileURL::ofPath(programs.path("link.txt")));
    EXPECT_EQ(shown, expected);
}

TEST_F(LinuxWorkspaceTest, ADocumentIsAFileOfThisMachine) {
    programs.writeProgram("xdg-open");
    for (const auto* url : {"https://orvelle.example/", "file://elsewhere/etc/hosts", "--help",
                            "/etc/hosts", "file:///etc/%zz"})
        EXPECT_EQ(startedBy([&](LinuxWorkspace& workspace) { workspace.openDocument(url); }), "")
            << url;
}

TEST_F(LinuxWorkspaceTest, OnlyInstalledApplicationsAreLaunched) {
    TemporaryFolder data;
    const TemporaryVariable home("XDG_DATA_HOME", data.path().c_str());
    data.write("applications/spotify.desktop", "[Desktop Entry]");
    data.write("applications/org.example.Player.desktop", "[Desktop Entry]");
    data.write("elsewhere.desktop", "[Desktop Entry]");
    programs.writeProgram("gio");
    const auto launched = [&](const std::string& identifier) {
        return startedBy([&](LinuxWorkspace& workspace) {
            workspace.launch(identifier);
            workspace.open("end:"); // is refused, and so ends the waiting where nothing starts
        });
    };
    EXPECT_EQ(launched("org.example.Missing"), "");
    EXPECT_EQ(launched("../elsewhere"), "");
    EXPECT_EQ(launched(data.path("elsewhere")), "");
    EXPECT_EQ(launched(""), "");
    const auto path = [&](const char* name) { return "gio launch " + data.path(name); };
    const auto alone = [&](const std::string& identifier) {
        return startedBy([&](LinuxWorkspace& workspace) { workspace.launch(identifier); });
    };
    EXPECT_EQ(alone("org.example.Player"), path("applications/org.example.Player.desktop"));
    EXPECT_EQ(alone("com.spotify.client"), path("applications/spotify.desktop"));
}

/// Programs that come when they are called, unless the test says otherwise.
class ObedientPrograms : public RunningPrograms {
public:
    std::set<std::string> running;
    bool comes = true;
    std::vector<Wanted> called;

    bool isRunning(const std::vector<std::string>& identifiers) const override {
        return std::ranges::any_of(identifiers,
                                   [&](const auto& each) { return running.contains(each); });
    }
    void bringToFront(const Wanted& wanted, std::function<void()> failed) override {
        called.push_back(wanted);
        if (!comes || !isRunning(wanted.identifiers))
            failed();
    }
};

class OpenProgramTest : public LinuxWorkspaceTest {
protected:
    OpenProgramTest() {
        programs.write("gio", "#!/bin/sh\necho \"$*\" >> '" + starts() + "'\n");
        std::filesystem::permissions(programs.path("gio"), std::filesystem::perms::owner_all);
    }

    std::string starts() const { return programs.path("starts"); }
    void install(const std::string& name, const std::string& keys = "") {
        data.write("applications/" + name + ".desktop", "[Desktop Entry]\n" + keys);
    }
    void open(const std::string& bundleIdentifier) { workspace.launch(bundleIdentifier); }
    bool hasStarted(const std::string& name) {
        const auto line = "launch " + data.path("applications/" + name + ".desktop") + "\n";
        return waitUntil([&] { return fileBytes(starts()) == line; });
    }

    TemporaryFolder data;
    TemporaryVariable home{"XDG_DATA_HOME", data.path().c_str()};
    ObedientPrograms others;
    LinuxWorkspace workspace{runLoop, log, {QStringLiteral("GNOME"), path()}, {}, &others};
};

TEST_F(OpenProgramTest, OneThatRunsComesToTheFrontAndIsNotStarted) {
    install("spotify", "StartupWMClass=Spotify\n");
    others.running = {"com.spotify.client", "bare"};
    open("com.spotify.client");
    open("bare");
    const std::vector<std::string> names{"spotify", "com.spotify.client"};
    ASSERT_EQ(others.called.size(), 2u);
    EXPECT_EQ(others.called[0],
              (RunningPrograms::Wanted{names, {"spotify", "com.spotify.client", "Spotify"}}));
    EXPECT_EQ(others.called[1].identifiers, std::vector<std::string>{"bare"});
    install("other");
    open("other");
    EXPECT_TRUE(hasStarted("other")) << "and nothing before it";
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(OpenProgramTest, OneThatRunsAndDoesNotComeIsStartedOnlyIfThatMakesNoSecondCopy) {
    install("many");
    install("single", "SingleMainWindow=true\n");
    others.running = {"many", "single"};
    others.comes = false;
    open("many");
    open("many");
    open("single");
    EXPECT_TRUE(hasStarted("single"));
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines[0].message, "Cannot bring many to the front");
}

TEST_F(OpenProgramTest, OneThatIsOnItsWayIsNotStartedAgain) {
    install("slow");
    install("last", "DBusActivatable=true\n");
    open("slow");
    ASSERT_TRUE(hasStarted("slow"));
    open("slow");
    open("last");
    EXPECT_TRUE(
        waitUntil([&] { return fileBytes(starts()).find("last.desktop") != std::string::npos; }));
    const auto text = fileBytes(starts());
    EXPECT_EQ(std::ranges::count(text, '\n'), 2) << text;
}

TEST_F(LinuxWorkspaceTest, InsideAServicesFencesTheManagerStartsWhatIsOpened) {
    programs.writeProgram("systemd-run");
    programs.writeProgram("xdg-open");
    const TemporaryVariable outside("ORVELLE_START_OUTSIDE", "1");
    const TemporaryVariable display("DISPLAY", ":7");
    const auto every = path() + QStringLiteral(":") + qEnvironmentVariable("PATH");
    const TemporaryVariable found("PATH", every.toUtf8());
    const auto line = opened("XFCE", "https://orvelle.example/");
    EXPECT_TRUE(line.starts_with("systemd-run --user ")) << line;
    EXPECT_NE(line.find(" --setenv=DISPLAY "), line.npos) << line;
    EXPECT_TRUE(line.ends_with(" -- " + programs.path("xdg-open") + " https://orvelle.example/"))
        << line;
}

TEST_F(LinuxWorkspaceTest, WhatNothingOpensIsLoggedOnce) {
    LinuxWorkspace workspace(runLoop, log, {QStringLiteral("GNOME"), path()}, {});
    workspace.open(powerPage);
    workspace.open(powerPage);
    workspace.open("https://orvelle.example/");
    ASSERT_EQ(log.lines.size(), 2u);
    EXPECT_EQ(log.lines[0].message, "Nothing here opens " + powerPage);
    EXPECT_EQ(log.lines[1].message, "Nothing here opens https://orvelle.example/");
}

} // namespace
} // namespace orvelle
