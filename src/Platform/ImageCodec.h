#pragma once

#include "Foundation/Image.h"
#include "Foundation/SharedBytes.h"

#include <optional>

namespace orvelle {

/// Makes pictures of the bytes of image files.
class ImageCodec {
public:
    virtual ~ImageCodec() = default;

    /// The first picture of a PNG, JPEG, GIF, BMP or WebP file, by its bytes and not by a name;
    /// scaled down, in proportion, so that no side is longer than `longestSide` pixels. None for
    /// bytes that are no such file or would unfold to more than 64 million pixels; a file that is
    /// cut short gives none, or what there is of it. Takes tens of milliseconds for a large
    /// picture. Any thread.
    virtual std::optional<Image> decode(const SharedBytes& bytes, int longestSide) = 0;
};

} // namespace orvelle
