#include "Features/Media/VolumeRow.h"

#include "Extensions/ColorTheme.h"
#include "Features/HUD/HUDManager.h"
#include "Models/Symbol.h"
#include "Platform/AudioHardware.h"

namespace orvelle {

namespace {
constexpr double symbolSize = 10;
}

StyledSymbol VolumeRow::quietSymbol() const {
    return {manager_.currentVolume > 0 ? "speaker.fill"_symbol : "speaker.slash.fill"_symbol,
            symbolSize, notchTertiary};
}

StyledSymbol VolumeRow::loudSymbol() const {
    return {"speaker.wave.3.fill"_symbol, symbolSize, notchTertiary};
}

bool VolumeRow::hasDevice() const {
    return platform_.audioHardware().defaultOutputDevice().has_value();
}

AnimatedSlider VolumeRow::slider() const {
    return {.value = manager_.currentVolume,
            .tintColor = notchSecondary,
            .height = 4,
            .showThumb = hasDevice()};
}

void VolumeRow::setVolume(double volume) const {
    HUDManager::setSystemVolume(platform_.audioHardware(), static_cast<float>(volume));
}

} // namespace orvelle
