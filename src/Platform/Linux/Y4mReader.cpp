#include "Platform/Linux/Y4mReader.h"

#include "Platform/Linux/SmallFile.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace orvelle {

namespace {

constexpr std::size_t maximumLine = 512; // bytes of a header

/// A line without its end; none at the end of the file and for a line that no header is.
std::optional<std::string> readLine(std::ifstream& file) {
    std::string line;
    for (char each = 0; line.size() < maximumLine && file.get(each);) {
        if (each == '\n')
            return line;
        line += each;
    }
    return std::nullopt;
}

std::uint8_t sample(double value) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

} // namespace

Y4mReader::Y4mReader(const std::string& path) : file_(path, std::ios::binary) {
    readHeader();
}

void Y4mReader::readHeader() {
    const auto header = readLine(file_);
    std::string_view rest = header ? std::string_view(*header) : std::string_view();
    if (!rest.starts_with("YUV4MPEG2 "))
        return;
    int width = 0;
    int height = 0;
    while (!rest.empty()) {
        const auto field = rest.substr(0, rest.find(' '));
        rest.remove_prefix(std::min(field.size() + 1, rest.size()));
        if (field.empty())
            continue;
        const auto value = field.substr(1);
        const auto side = [&] {
            const auto number = parseNumber(value).value_or(0);
            return number > 0 && number <= maximumSide ? static_cast<int>(number) : 0;
        };
        if (field[0] == 'W')
            width = side();
        else if (field[0] == 'H')
            height = side();
        else if (field[0] == 'C' && value.find('p') != value.npos && !value.ends_with("jpeg") &&
                 !value.ends_with("paldv"))
            return; // more than eight bits
        else if (field[0] == 'C')
            chroma_ = value.starts_with("444")    ? Chroma{1, 1, false}
                      : value.starts_with("422")  ? Chroma{2, 1, false}
                      : value.starts_with("mono") ? Chroma{1, 1, true}
                                                  : Chroma{};
    }
    if (height == 0)
        return;
    width_ = width;
    height_ = height;
    firstFrame_ = file_.tellg();
}

std::optional<Image> Y4mReader::next() {
    if (!isValid())
        return std::nullopt;
    if (auto frame = readFrame())
        return frame;
    file_.clear();
    file_.seekg(firstFrame_);
    return readFrame();
}

std::size_t Y4mReader::chromaWidth() const {
    return static_cast<std::size_t>((width_ + chroma_.columns - 1) / chroma_.columns);
}

std::size_t Y4mReader::frameSize() const {
    const auto luma = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
    const auto rows = static_cast<std::size_t>((height_ + chroma_.rows - 1) / chroma_.rows);
    return chroma_.isGray ? luma : luma + 2 * chromaWidth() * rows;
}

std::optional<Image> Y4mReader::readFrame() {
    const auto header = readLine(file_);
    if (!header || !header->starts_with("FRAME"))
        return std::nullopt;
    std::vector<std::uint8_t> planes(frameSize());
    if (!file_.read(reinterpret_cast<char*>(planes.data()),
                    static_cast<std::streamsize>(planes.size())))
        return std::nullopt;
    return Image(width_, height_, converted(planes));
}

/// By the rule of BT.601 for the range from 16 to 235.
std::vector<std::uint8_t> Y4mReader::converted(const std::vector<std::uint8_t>& planes) const {
    const auto width = static_cast<std::size_t>(width_);
    const auto height = static_cast<std::size_t>(height_);
    const auto luma = width * height;
    const auto chromaSize = (planes.size() - luma) / 2;
    std::vector<std::uint8_t> pixels;
    pixels.reserve(luma * 4);
    for (std::size_t row = 0; row < height; ++row)
        for (std::size_t column = 0; column < width; ++column) {
            const double y = 1.164 * (planes[row * width + column] - 16);
            double u = 0;
            double v = 0;
            if (!chroma_.isGray) {
                const auto at = luma +
                                row / static_cast<std::size_t>(chroma_.rows) * chromaWidth() +
                                column / static_cast<std::size_t>(chroma_.columns);
                u = planes[at] - 128.0;
                v = planes[at + chromaSize] - 128.0;
            }
            pixels.insert(pixels.end(), {sample(y + 1.596 * v), sample(y - 0.392 * u - 0.813 * v),
                                         sample(y + 2.017 * u), 255});
        }
    return pixels;
}

} // namespace orvelle
