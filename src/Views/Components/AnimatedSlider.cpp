#include "Views/Components/AnimatedSlider.h"

#include "Foundation/Format.h"

#include <algorithm>

namespace orvelle {

double AnimatedSlider::fraction() const {
    return std::clamp((value - lowerBound) / (upperBound - lowerBound), 0.0, 1.0);
}

double AnimatedSlider::fillWidth(double width) const {
    return width * fraction();
}

std::string AnimatedSlider::levelText() const {
    return format("%.0f%%", fraction() * 100);
}

double AnimatedSlider::valueAt(double x, double width) const {
    return lowerBound + std::clamp(x / width, 0.0, 1.0) * (upperBound - lowerBound);
}

double AnimatedSlider::thumbDiameter() const {
    return height * 2.5;
}

double AnimatedSlider::thumbOffset(double width) const {
    return fillWidth(width) - thumbDiameter() / 2;
}

double AnimatedSlider::thumbScale(bool isDragging) {
    return isDragging ? 1.2 : 1.0;
}

} // namespace orvelle
