#include "Platform/Qt/QtImageCodec.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <climits>

namespace orvelle {

namespace {

constexpr qint64 maximumPixels = 64'000'000;
constexpr std::string_view formats[] = {"png", "jpeg", "gif", "bmp", "webp"};

bool isKnown(const QByteArray& format) {
    return std::find(std::begin(formats), std::end(formats), format.toStdString()) !=
           std::end(formats);
}

QSize fitted(QSize size, int longestSide) {
    if (std::max(size.width(), size.height()) <= longestSide)
        return size;
    return size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

Image fromQt(const QImage& picture) {
    const auto rgba = picture.convertToFormat(QImage::Format_RGBA8888);
    const auto row = static_cast<std::size_t>(rgba.width()) * 4;
    std::vector<std::uint8_t> pixels;
    pixels.reserve(row * static_cast<std::size_t>(rgba.height()));
    for (int line = 0; line < rgba.height(); ++line) {
        const auto* bytes = rgba.constScanLine(line);
        pixels.insert(pixels.end(), bytes, bytes + row);
    }
    return {rgba.width(), rgba.height(), std::move(pixels)};
}

} // namespace

std::optional<Image> QtImageCodec::decode(const SharedBytes& bytes, int longestSide) {
    const auto text = bytes.view();
    if (text.empty() || text.size() > INT_MAX)
        return std::nullopt;
    auto view = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    QBuffer buffer(&view);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    // Scalable drawings and their like are left out: they read other files and take their time.
    if (!isKnown(reader.format()))
        return std::nullopt;
    const auto size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > maximumPixels)
        return std::nullopt;
    reader.setAutoTransform(true);
    reader.setScaledSize(fitted(size, longestSide));
    const auto picture = reader.read();
    return picture.isNull() ? std::nullopt : std::optional(fromQt(picture));
}

} // namespace orvelle
