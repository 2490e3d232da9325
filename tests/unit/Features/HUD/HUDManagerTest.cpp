#include "Features/HUD/HUDManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace orvelle;

namespace {

constexpr AudioDeviceID speakers = 7;
constexpr AudioDeviceID headphones = 8;

/// A manager on a machine with two outputs and one display.
class HUDManagerTest : public testing::Test {
protected:
    HUDManagerTest() {
        audio().list = {{.id = speakers, .name = "Speakers", .volume = 0.30F},
                        {.id = headphones, .name = "Headphones", .volume = 0.60F}};
        audio().defaultOutput = speakers;
        setBrightness(0.5F);
    }

    SimulatedAudioHardware& audio() { return platform.audioHardwarePort; }
    void setBrightness(float level) { platform.displayBrightnessPort.displays = {{level}}; }
    void changeVolume(float volume) { audio().changeVolume(speakers, volume); }
    void advance(Seconds seconds) { platform.runLoopPort.advance(seconds); }
    void tick() { advance(HUDManager::brightnessInterval); }
    bool isShown() const { return state->isHUDVisible; }

    SimulatedPlatform platform;
    std::shared_ptr<NotchState> state = std::make_shared<NotchState>(platform);
    HUDManager manager{state, platform};
};

} // namespace

TEST_F(HUDManagerTest, Volume30To31ShowsTheHUDAndBrightness500To505DoesNot) {
    manager.start();
    setBrightness(0.505F);
    tick();
    EXPECT_FALSE(isShown());
    EXPECT_FLOAT_EQ(manager.currentBrightness, 0.5F);
    changeVolume(0.31F);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(state->hudType.get(), HUDType::volume);
    EXPECT_FLOAT_EQ(static_cast<float>(state->hudValue), 0.31F);
}

TEST_F(HUDManagerTest, ADriftOf6ThousandthsATickShowsTheHUDWhenTheSumPasses10Thousandths) {
    manager.start();
    setBrightness(0.506F);
    tick();
    EXPECT_FALSE(isShown());
    setBrightness(0.512F);
    tick();
    EXPECT_TRUE(isShown());
    EXPECT_FLOAT_EQ(manager.currentBrightness, 0.512F);
    advance(HUDManager::hideDelay);
    ASSERT_FALSE(isShown());
    setBrightness(0.518F);
    tick();
    EXPECT_FALSE(isShown()) << "counted from the last accepted value";
}

TEST_F(HUDManagerTest, TwoVolumeEvents1500MillisecondsApartKeepTheHUDUpFor3500) {
    manager.start();
    changeVolume(0.4F);
    advance(1.5);
    changeVolume(0.5F);
    advance(1.99);
    EXPECT_TRUE(isShown());
    advance(0.01);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(state->hudType.get(), HUDType::volume) << "for the fade";
    EXPECT_FLOAT_EQ(static_cast<float>(state->hudValue), 0.5F);
}

TEST_F(HUDManagerTest, AVolumeEventRightAfterABrightnessEventSwitchesTheTypeOnTheSameDisplay) {
    manager.start();
    setBrightness(0.7F);
    tick();
    ASSERT_EQ(state->hudType.get(), HUDType::brightness);
    bool hidden = false;
    const auto watch = state->isHUDVisible.observe([&](bool visible) { hidden |= !visible; });
    changeVolume(0.9F);
    EXPECT_EQ(state->hudType.get(), HUDType::volume);
    EXPECT_FLOAT_EQ(static_cast<float>(state->hudValue), 0.9F);
    EXPECT_FALSE(hidden);
}

TEST_F(HUDManagerTest, ASecondStartDoesNothingUntilStopHasRun) {
    manager.start();
    const auto timers = platform.runLoopPort.timerCount();
    audio().list.front().volume = 0.8F;
    setBrightness(0.9F);
    manager.start();
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.30F);
    EXPECT_FLOAT_EQ(manager.currentBrightness, 0.5F);
    EXPECT_EQ(platform.runLoopPort.timerCount(), timers);
    manager.stop();
    manager.start();
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.8F);
    EXPECT_FLOAT_EQ(manager.currentBrightness, 0.9F);
}

TEST_F(HUDManagerTest, DisablingWhileMonitoringChangesNothingUntilTheNextStopAndStart) {
    manager.start();
    manager.isEnabled = false;
    changeVolume(0.4F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.4F);
    EXPECT_TRUE(manager.isIntercepting);
    manager.stop();
    manager.start();
    EXPECT_FALSE(manager.isMonitoring);
    changeVolume(0.5F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.4F);
}

TEST_F(HUDManagerTest, SetSystemVolumeIsClamped) {
    HUDManager::setSystemVolume(audio(), 1.5F);
    HUDManager::setSystemVolume(audio(), -0.2F);
    const std::vector<std::pair<AudioDeviceID, float>> expected = {{speakers, 1.0F},
                                                                   {speakers, 0.0F}};
    EXPECT_EQ(audio().volumeWrites, expected);
}

TEST_F(HUDManagerTest, TheValuesAtStartAreNoChanges) {
    manager.start();
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.30F);
    EXPECT_FLOAT_EQ(manager.currentBrightness, 0.5F);
    advance(10);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(state->hudType.get(), std::nullopt);
}

TEST_F(HUDManagerTest, AnyVolumeEventShowsTheHUDEvenAnEqualVolume) {
    manager.start();
    changeVolume(0.30F);
    EXPECT_TRUE(isShown());
}

TEST_F(HUDManagerTest, TypeAndValueAreWrittenBeforeTheHUDIsShown) {
    manager.start();
    std::vector<std::string> writes;
    const std::vector<Subscription> watches = [&] {
        std::vector<Subscription> list;
        list.push_back(state->hudType.observe([&](const auto&) { writes.push_back("type"); }));
        list.push_back(state->hudValue.observe([&](const auto&) { writes.push_back("value"); }));
        list.push_back(state->isHUDVisible.observe([&](bool) { writes.push_back("visible"); }));
        return list;
    }();
    writes.clear();
    changeVolume(0.5F);
    EXPECT_EQ(writes, (std::vector<std::string>{"type", "value", "visible"}));
}

TEST_F(HUDManagerTest, WithoutABaselineTheFirstVolumeEventShowsNothing) {
    manager.startIntercepting();
    changeVolume(0.4F);
    EXPECT_FALSE(isShown());
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.4F);
    changeVolume(0.4F);
    EXPECT_TRUE(isShown());
}

TEST_F(HUDManagerTest, WithoutANotchStateTheFiguresAreKeptAndNothingElse) {
    HUDManager unwired({}, platform);
    unwired.start();
    changeVolume(0.4F);
    setBrightness(0.8F);
    tick();
    EXPECT_FLOAT_EQ(unwired.currentVolume, 0.4F);
    EXPECT_FLOAT_EQ(unwired.currentBrightness, 0.8F);
    EXPECT_EQ(platform.runLoopPort.timerCount(), 1u) << "the poll, and no hide timer";
    EXPECT_FALSE(isShown());
}

TEST_F(HUDManagerTest, ANotchStateThatHasGoneIsNotTouched) {
    manager.start();
    changeVolume(0.4F);
    state.reset();
    advance(HUDManager::hideDelay);
    changeVolume(0.5F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.5F);
}

TEST_F(HUDManagerTest, WhatIsShownWhenStoppedStaysShown) {
    manager.start();
    changeVolume(0.4F);
    manager.stop();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    advance(10);
    EXPECT_TRUE(isShown());
    EXPECT_FALSE(manager.isIntercepting);
    EXPECT_FALSE(manager.isMonitoring);
}

TEST_F(HUDManagerTest, TheListenerStaysWithTheDeviceThatWasTheDefaultUntilTheNextRestart) {
    manager.start();
    audio().setDefaultOutputDevice(headphones);
    audio().changeVolume(headphones, 0.9F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.30F);
    changeVolume(0.1F); // the old device is heard, the new one is read
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.9F);
    manager.stop();
    manager.start();
    audio().changeVolume(headphones, 0.7F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.7F);
}

TEST_F(HUDManagerTest, OnAPlatformWhoseListenersFollowTheOutputSoDoFigureAndDisplay) {
    audio().listenersFollowDefault = true;
    manager.start();
    audio().setDefaultOutputDevice(headphones);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.60F);
    EXPECT_TRUE(isShown());
    audio().changeVolume(headphones, 0.9F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.9F);
    EXPECT_FLOAT_EQ(static_cast<float>(state->hudValue), 0.9F);
}

TEST_F(HUDManagerTest, TheListenerStaysWhenTheDefaultDeviceCannotBeReadAtStop) {
    manager.start();
    audio().defaultOutput.reset();
    manager.stop();
    audio().defaultOutput = speakers;
    changeVolume(0.9F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.9F);
    manager.stop();
    changeVolume(0.2F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.9F);
}

TEST_F(HUDManagerTest, WithoutADefaultDeviceTheVolumeIs0AndNothingIsWritten) {
    audio().defaultOutput.reset();
    manager.start();
    EXPECT_FLOAT_EQ(manager.currentVolume, 0);
    HUDManager::setSystemVolume(audio(), 0.5F);
    EXPECT_TRUE(audio().volumeWrites.empty());
    EXPECT_TRUE(manager.isIntercepting) << "brightness is watched all the same";
    EXPECT_TRUE(platform.logPort.lines.empty());
}

TEST_F(HUDManagerTest, ADeviceWithoutAVolumeReadsAs0) {
    audio().list.front().volume.reset();
    EXPECT_FLOAT_EQ(HUDManager::getSystemVolume(audio()), 0);
}

TEST_F(HUDManagerTest, SettingTheVolumeChangesTheFigureThroughTheListenerOnly) {
    HUDManager::setSystemVolume(audio(), 0.7F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0);
    manager.start();
    HUDManager::setSystemVolume(audio(), 0.8F);
    EXPECT_FLOAT_EQ(manager.currentVolume, 0.8F);
    EXPECT_TRUE(isShown());
}

TEST_F(HUDManagerTest, OfSeveralDisplaysTheLastThatAnswersCounts) {
    auto& displays = platform.displayBrightnessPort;
    displays.displays = {{0.2F, 0.9F, std::nullopt}};
    EXPECT_FLOAT_EQ(HUDManager::getScreenBrightness(displays), 0.9F);
    displays.displays = std::vector<std::optional<float>>(1);
    EXPECT_FLOAT_EQ(HUDManager::getScreenBrightness(displays), 0.5F);
    displays.displays.reset();
    EXPECT_FLOAT_EQ(HUDManager::getScreenBrightness(displays), 0.5F);
}

TEST_F(HUDManagerTest, AManagerThatHasGoneIsNotCalled) {
    auto shortLived = std::make_unique<HUDManager>(state, platform);
    shortLived->start();
    shortLived.reset();
    EXPECT_EQ(platform.runLoopPort.timerCount(), 0u);
    changeVolume(0.9F);
    EXPECT_FALSE(isShown());
}

TEST_F(HUDManagerTest, ASecondOrderToInterceptKeepsTheBeatOfTheFirst) {
    manager.startIntercepting();
    advance(0.2);
    manager.startIntercepting();
    setBrightness(0.9F);
    advance(0.1);
    EXPECT_FLOAT_EQ(manager.currentBrightness, 0.9F);
}

TEST_F(HUDManagerTest, OnlyMoreThanAHundredthIsAChangeOfTheBrightness) {
    setBrightness(0);
    manager.start();
    setBrightness(0.01F);
    tick();
    EXPECT_FALSE(isShown());
    setBrightness(0.0105F);
    tick();
    EXPECT_TRUE(isShown());
}

TEST_F(HUDManagerTest, NothingIsKnownBeforeTheStart) {
    EXPECT_EQ(manager.currentVolume, 0);
    EXPECT_EQ(manager.currentBrightness, 0);
    EXPECT_FALSE(manager.isMonitoring);
}
