#pragma once

#include "Foundation/Color.h"
#include "Foundation/Image.h"

#include <optional>

namespace orvelle {

// The panel's own colours: black ground, white text at three levels.
inline constexpr Color notchSurface = Color::white(0.12);
inline constexpr Color notchAccent = Color::white(1);
inline constexpr Color notchSecondary = Color::white(0.6);
inline constexpr Color notchTertiary = Color::white(0.35);
/// The faintest text that can still be read with ease, also on a row or in a field.
inline constexpr Color notchFaint = Color::white(0.52);

/// The colour of the picture's centre pixel, as it stands; `notchAccent` without a pixel there.
Color adaptiveAccent(const std::optional<Image>& image);

} // namespace orvelle
