#include "Features/HUD/HUDManager.h"

#include "Models/Symbol.h"
#include "Platform/AudioHardware.h"
#include "Platform/DisplayBrightness.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvelle {

HUDManager::HUDManager(std::weak_ptr<NotchState> state, Platform& platform)
    : FeatureModule("hud", "HUD", std::string("speaker.wave.2"_symbol)),
      notchState(std::move(state)), platform_(platform) {}

void HUDManager::start() {
    if (!isEnabled || isMonitoring)
        return;
    isMonitoring = true;
    currentVolume = getSystemVolume(platform_.audioHardware());
    currentBrightness = getScreenBrightness(platform_.displayBrightness());
    lastBrightness_ = currentBrightness;
    initialVolumeSet_ = true;
    startIntercepting();
}

void HUDManager::stop() {
    isMonitoring = false;
    stopIntercepting();
}

void HUDManager::startIntercepting() {
    if (isIntercepting)
        return;
    intercepts_ = true;
    startVolumeListener();
    startBrightnessPolling();
}

void HUDManager::stopIntercepting() {
    intercepts_ = false;
    stopVolumeListener();
    brightnessTimer_.reset();
    hideTimer_.reset();
}

void HUDManager::startVolumeListener() {
    auto& audio = platform_.audioHardware();
    if (const auto device = audio.defaultOutputDevice())
        volumeListener_ = audio.addVolumeListener(*device, [this] { volumeChanged(); });
}

void HUDManager::stopVolumeListener() {
    if (volumeListener_ && platform_.audioHardware().defaultOutputDevice())
        volumeListener_.reset();
}

void HUDManager::volumeChanged() {
    const float volume = getSystemVolume(platform_.audioHardware());
    const bool hadBaseline = std::exchange(initialVolumeSet_, true);
    currentVolume = volume;
    if (hadBaseline)
        showHUD(HUDType::volume, volume);
}

void HUDManager::startBrightnessPolling() {
    brightnessTimer_ = platform_.runLoop().every(brightnessInterval, [this] { checkBrightness(); });
}

void HUDManager::checkBrightness() {
    const float brightness = getScreenBrightness(platform_.displayBrightness());
    if (std::abs(brightness - lastBrightness_) <= brightnessThreshold)
        return;
    currentBrightness = brightness;
    lastBrightness_ = brightness;
    showHUD(HUDType::brightness, brightness);
}

float HUDManager::getSystemVolume(AudioHardware& audio) {
    const auto device = audio.defaultOutputDevice();
    return device ? audio.volume(*device).value_or(0.0F) : 0.0F;
}

void HUDManager::setSystemVolume(AudioHardware& audio, float value) {
    if (const auto device = audio.defaultOutputDevice())
        audio.setVolume(*device, std::clamp(value, 0.0F, 1.0F));
}

float HUDManager::getScreenBrightness(DisplayBrightness& displays) {
    float result = 0.5F;
    if (const auto levels = displays.levels())
        for (const auto& level : *levels)
            result = level.value_or(result);
    return result;
}

void HUDManager::showHUD(HUDType type, float value) {
    const auto state = notchState.lock();
    if (!state)
        return;
    state->hudType = type;
    state->hudValue = static_cast<double>(value);
    state->isHUDVisible = true;
    hideTimer_ = platform_.runLoop().after(hideDelay, [this] { hideHUD(); });
}

void HUDManager::hideHUD() {
    if (const auto state = notchState.lock())
        state->isHUDVisible = false; // its view fades out
}

} // namespace orvelle
