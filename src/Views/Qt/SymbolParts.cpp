#include "Views/Qt/SymbolParts.h"

#include <algorithm>
#include <vector>

namespace orvelle::SymbolParts {

namespace {

using Part = std::vector<QPoint>;

bool isDrawn(const QImage& image, QPoint at) {
    return image.rect().contains(at) &&
           qAlpha(reinterpret_cast<const QRgb*>(image.constScanLine(at.y()))[at.x()]) > 0;
}

/// The part that this point belongs to; marks its points as seen.
Part partAt(const QImage& image, QPoint start, std::vector<bool>& seen) {
    const auto index = [&](QPoint at) {
        return static_cast<std::size_t>(at.y() * image.width() + at.x());
    };
    Part part{start};
    seen[index(start)] = true;
    for (std::size_t next = 0; next < part.size(); ++next)
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            if (const auto at = part[next] + step; isDrawn(image, at) && !seen[index(at)]) {
                seen[index(at)] = true;
                part.push_back(at);
            }
    return part;
}

std::vector<Part> partsOf(const QImage& image) {
    std::vector<Part> parts;
    std::vector<bool> seen(static_cast<std::size_t>(image.width() * image.height()));
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!seen[static_cast<std::size_t>(y * image.width() + x)] && isDrawn(image, {x, y}))
                parts.push_back(partAt(image, {x, y}, seen));
    return parts;
}

} // namespace

void fadeAllButTheLargest(QImage& image) {
    const auto parts = partsOf(image);
    const auto largest = std::ranges::max_element(parts, {}, &Part::size);
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        if (part == largest)
            continue;
        for (const QPoint at : *part) {
            auto& pixel = reinterpret_cast<QRgb*>(image.scanLine(at.y()))[at.x()];
            pixel = qRgba(qRed(pixel) / 2, qGreen(pixel) / 2, qBlue(pixel) / 2, qAlpha(pixel) / 2);
        }
    }
}

} // namespace orvelle::SymbolParts
