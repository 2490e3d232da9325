#pragma once

#include "Foundation/Color.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace orvelle {

/// A decoded picture, shared and never changed after it is made. Four bytes a pixel: red, green,
/// blue, alpha, not premultiplied, rows from the top without padding.
class Image {
public:
    Image() = default;
    /// Takes `width` times `height` times 4 bytes; any other amount gives an image without pixels.
    Image(int width, int height, std::vector<std::uint8_t> pixels);

    int width() const { return width_; }
    int height() const { return height_; }
    const std::uint8_t* pixels() const { return pixels_ ? pixels_->data() : nullptr; }

    /// None outside the picture.
    std::optional<Color> colorAt(int column, int row) const;

    /// The same pixels in memory, not the same colours.
    bool operator==(const Image&) const = default;

private:
    int width_ = 0;
    int height_ = 0;
    std::shared_ptr<const std::vector<std::uint8_t>> pixels_;
};

} // namespace orvelle
