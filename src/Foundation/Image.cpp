#include "Foundation/Image.h"

namespace orvelle {

Image::Image(int width, int height, std::vector<std::uint8_t> pixels) {
    if (width <= 0 || height <= 0 ||
        pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4)
        return;
    width_ = width;
    height_ = height;
    pixels_ = std::make_shared<const std::vector<std::uint8_t>>(std::move(pixels));
}

std::optional<Color> Image::colorAt(int column, int row) const {
    if (column < 0 || row < 0 || column >= width_ || row >= height_)
        return std::nullopt;
    const auto offset = (static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
                         static_cast<std::size_t>(column)) *
                        4;
    const auto component = [&](std::size_t index) { return (*pixels_)[offset + index] / 255.0; };
    return Color{component(0), component(1), component(2), component(3)};
}

} // namespace orvelle
