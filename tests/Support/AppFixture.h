#pragma once

#include "App/AppDelegate.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/NullViewHost.h"

#include <gtest/gtest.h>

namespace orvelle {

/// The whole program on a simulated machine.
class AppFixture : public testing::Test {
protected:
    SimulatedPlatform platform;
    NullViewHost views;
    AppDelegate app{views, platform};

    SimulatedUserDefaults& defaults() { return platform.userDefaultsPort; }
    /// All but the one of the daily look for updates, which lasts as long as the program.
    std::size_t featureTimers() {
        return platform.runLoopPort.timerCount() - (app.updateChecker.timer ? 1 : 0);
    }
    void advance(Seconds seconds) { platform.runLoopPort.advance(seconds); }
    void runPosted() { platform.runLoopPort.runPosted(); }
    SimulatedPanelWindow& window() { return *platform.panelWindowsPort.last; }
    NotchExpandedState state() { return app.notchState.expandedState.get(); }
    void setState(NotchExpandedState state) { app.notchState.expandedState = state; }

    /// As on every launch but the first.
    void launchNormally() {
        defaults().set("hasCompletedOnboarding", true);
        app.applicationDidFinishLaunching();
    }
};

} // namespace orvelle
