#pragma once

#include "Foundation/Image.h"

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// The pictures of a YUV4MPEG2 file of eight bits a sample, one after the other.
class Y4mReader {
public:
    static constexpr int maximumSide = 4096; ///< pixels

    explicit Y4mReader(const std::string& path);

    /// Whether the file begins as such a file does.
    bool isValid() const { return width_ > 0; }
    /// The next picture, after the last one the first again; none when there is not even one.
    std::optional<Image> next();

private:
    /// Samples of colour for each one of brightness, across and down.
    struct Chroma {
        int columns = 2, rows = 2;
        bool isGray = false;
    };

    void readHeader();
    std::optional<Image> readFrame();
    std::vector<std::uint8_t> converted(const std::vector<std::uint8_t>& planes) const;
    std::size_t chromaWidth() const;
    std::size_t frameSize() const;

    std::ifstream file_;
    std::streamoff firstFrame_ = 0;
    int width_ = 0;
    int height_ = 0;
    Chroma chroma_;
};

} // namespace orvelle
