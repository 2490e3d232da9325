#include "Platform/Linux/MjpegReader.h"

#include <QImage>

#include <cstdint>
#include <fstream>
#include <string_view>
#include <vector>

namespace orvelle {

namespace {

constexpr std::string_view beginning = "\xff\xd8\xff";
constexpr std::string_view ending = "\xff\xd9";

} // namespace

MjpegReader::MjpegReader(const std::string& path) : bytes_(maximumFileSize, '\0') {
    std::ifstream file(path, std::ios::binary);
    file.read(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
    bytes_.resize(static_cast<std::size_t>(file.gcount()));
    bytes_.shrink_to_fit();
}

bool MjpegReader::isValid() const {
    return std::string_view(bytes_).starts_with(beginning);
}

std::optional<Image> MjpegReader::next() {
    if (auto frame = readFrame())
        return frame;
    position_ = 0;
    return readFrame();
}

std::optional<Image> MjpegReader::readFrame() {
    const auto start = bytes_.find(beginning, position_);
    if (start == std::string::npos)
        return std::nullopt;
    const auto end = bytes_.find(ending, start);
    position_ = end == std::string::npos ? bytes_.size() : end + ending.size();
    auto picture = QImage::fromData(reinterpret_cast<const uchar*>(bytes_.data()) + start,
                                    static_cast<int>(position_ - start), "JPG");
    if (picture.isNull())
        return std::nullopt;
    picture.convertTo(QImage::Format_RGBA8888);
    // Rows of four bytes a pixel have no padding.
    return Image(picture.width(), picture.height(),
                 std::vector<std::uint8_t>(picture.constBits(),
                                           picture.constBits() + picture.sizeInBytes()));
}

} // namespace orvelle
