#include "Views/Qt/SymbolImages.h"

#include "Views/Qt/SymbolParts.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace orvelle::SymbolImages {

namespace {

/// The drawings stand in squares of this side.
constexpr double square = 56;
/// The square's side, in multiples of the text size. A round symbol fills 85 % of its square and so
/// becomes 1.4 times as high as a capital letter.
constexpr double squareToText = 1.2;
/// The side of a round symbol in its square. A wide symbol is enlarged towards the same area.
constexpr double roundSymbol = 47;
constexpr double largestEnlargement = 1.3;
/// Its contrast is 3.9 to 1 on white and 5.3 to 1 on black.
constexpr QColor trayColor(128, 128, 128);

/// How far the lines of a bold symbol grow to each side, in the drawings' own measure.
constexpr double boldThickening = 1.1;
/// The least side, in pixels, of the square in which a symbol is worked on.
constexpr double fineSide = 336;

double thickening(int weight) {
    return boldThickening *
           std::clamp(double(weight - QFont::Normal) / (QFont::Bold - QFont::Normal), 0.0, 1.0);
}

/// Where to draw a symbol so that its lines grow by so much to each side.
std::vector<QPointF> shifts(double distance) {
    std::vector<QPointF> points{{0, 0}};
    constexpr int directions = 12;
    for (int step = 0; distance > 0 && step < directions; ++step) {
        const double angle = 2 * std::numbers::pi * step / directions;
        points.emplace_back(distance * std::cos(angle), distance * std::sin(angle));
    }
    return points;
}

struct Drawing {
    std::shared_ptr<QSvgRenderer> renderer;
    QRectF bounds; ///< of what is drawn, within the square
    double scale = squareToText / square;
};

QRectF drawnBounds(QSvgRenderer& renderer) {
    constexpr int detail = 2;
    QImage image(static_cast<int>(square) * detail, static_cast<int>(square) * detail,
                 QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.constScanLine(y)[x]) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    if (right < 0)
        return {};
    return {QPointF(left, top) / detail, QPointF(right + 1, bottom + 1) / detail};
}

const Drawing* drawing(const QString& name) {
    static QHash<QString, Drawing> drawings;
    auto found = drawings.find(name);
    if (found == drawings.end()) {
        Drawing made;
        const auto file = QStringLiteral(":/symbols/%1.svg").arg(name);
        if (QFile::exists(file)) {
            made.renderer = std::make_shared<QSvgRenderer>(file);
            made.bounds = drawnBounds(*made.renderer);
            if (made.bounds.width() > 1.3 * made.bounds.height())
                made.scale *=
                    std::clamp(roundSymbol / std::sqrt(made.bounds.width() * made.bounds.height()),
                               1.0, largestEnlargement);
        }
        found = drawings.insert(name, made);
    }
    return found->renderer ? &*found : nullptr;
}

} // namespace

QSizeF extent(const QString& name, double size, int weight) {
    const auto* drawn = drawing(name);
    if (!drawn)
        return {};
    return {std::ceil((drawn->bounds.width() + 2 * thickening(weight)) * drawn->scale * size),
            std::round(squareToText * size)};
}

QImage render(const QString& name, double size, const QColor& color, double devicePixelRatio,
              Style style) {
    static QHash<QString, QImage> images;
    const auto key = QStringLiteral("%1/%2/%3/%4/%5/%6")
                         .arg(name)
                         .arg(size)
                         .arg(color.name(QColor::HexArgb))
                         .arg(devicePixelRatio)
                         .arg(style.weight)
                         .arg(style.isHierarchical);
    if (const auto found = images.constFind(key); found != images.constEnd())
        return *found;

    const auto* drawn = drawing(name);
    if (!drawn)
        return {};
    const QSizeF points = extent(name, size, style.weight);
    const QSize pixels = (points * devicePixelRatio).toSize();
    const double side = square * drawn->scale * size;
    const double left = points.width() / 2 - drawn->bounds.center().x() * drawn->scale * size;
    const double grown = thickening(style.weight) * drawn->scale * size;
    // Lines are thickened and parts told apart in a picture that is finer than the pixels.
    const bool isPlain = grown == 0 && !style.isHierarchical;
    const int detail =
        isPlain ? 1 : std::max(2, static_cast<int>(fineSide / (side * devicePixelRatio)));
    QImage image(pixels * detail, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio * detail);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (const auto& shift : shifts(grown))
        drawn->renderer->render(
            &painter, QRectF(left, (points.height() - side) / 2, side, side).translated(shift));
    painter.end();
    if (style.isHierarchical)
        SymbolParts::fadeAllButTheLargest(image);
    if (!isPlain)
        image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(devicePixelRatio);
    painter.begin(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), points), color);
    painter.end();
    images.insert(key, image);
    return image;
}

QIcon trayIcon(const QString& name, double size) {
    QIcon icon;
    for (const double devicePixelRatio : {1.0, 2.0})
        if (const auto image = render(name, size, trayColor, devicePixelRatio); !image.isNull())
            icon.addPixmap(QPixmap::fromImage(image));
    return icon;
}

} // namespace orvelle::SymbolImages
