#pragma once

#include "Foundation/Image.h"

namespace orvelle {

/// What the demonstration's camera sees: somebody before a wall in the evening light. The light
/// comes from the picture's left, so that a flipped picture can be told.
Image demoPortrait(int width, int height);

} // namespace orvelle
