#pragma once

#include "Platform/ImageCodec.h"

namespace orvelle {

/// Qt's readers. GIF, BMP and PNG files stand on their own; JPEG and WebP need their plug-ins.
class QtImageCodec : public ImageCodec {
public:
    std::optional<Image> decode(const SharedBytes& bytes, int longestSide) override;
};

} // namespace orvelle
