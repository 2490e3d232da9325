#include "Features/Media/VolumeRow.h"

#include "Extensions/ColorTheme.h"
#include "Features/HUD/HUDManager.h"
#include "Models/Symbol.h"

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

AnimatedSlider VolumeRow::slider() const {
    return {.value = manager_.currentVolume, .tintColor = notchSecondary, .height = 3};
}

void VolumeRow::setVolume(double volume) const {
    HUDManager::setSystemVolume(platform_.audioHardware(), static_cast<float>(volume));
}

} // namespace orvelle
