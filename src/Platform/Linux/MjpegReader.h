#pragma once

#include "Foundation/Image.h"

#include <optional>
#include <string>

namespace orvelle {

/// The pictures of a file of JPEG pictures, one after the other.
class MjpegReader {
public:
    static constexpr std::size_t maximumFileSize = 64 << 20; ///< bytes; the rest is not shown

    explicit MjpegReader(const std::string& path);

    bool isValid() const;
    /// The next picture, after the last one the first again; none when there is not even one.
    std::optional<Image> next();

private:
    std::optional<Image> readFrame();

    std::string bytes_;
    std::size_t position_ = 0;
};

} // namespace orvelle
