#include "Views/Qt/ShadowItem.h"

#include <algorithm>
#include <cmath>

namespace orvelle {

namespace {

/// From 1 to 0 while `distance` goes from `-reach` to `reach`, without an edge.
double fading(double distance, double reach) {
    const double passed = std::clamp((distance / reach + 1) / 2, 0.0, 1.0);
    return 1 - passed * passed * (3 - 2 * passed);
}

} // namespace

ShadowItem::ShadowItem(QQuickItem* parent) : PictureItem(Extent::ofItem, parent) {
    connect(this, &ShadowItem::changed, this, [this] { redraw(); });
}

QImage ShadowItem::picture(double devicePixelRatio) const {
    const QSize size = (QSizeF(width(), height()) * devicePixelRatio).toSize();
    if (size.isEmpty() || reach_ <= 0)
        return {};
    QImage picture(size, QImage::Format_ARGB32);
    // How far the corners' centres are from the middle.
    const double farX = width() / 2 - reach_ - radius_;
    const double farY = height() / 2 - reach_ - radius_;
    for (int row = 0; row < size.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(row));
        const double y = std::abs((row + 0.5) / devicePixelRatio - height() / 2) - farY;
        for (int column = 0; column < size.width(); ++column) {
            const double x = std::abs((column + 0.5) / devicePixelRatio - width() / 2) - farX;
            const double distance = std::hypot(std::max(x, 0.0), std::max(y, 0.0)) +
                                    std::min(std::max(x, y), 0.0) - radius_;
            QColor shade = color_;
            shade.setAlphaF(static_cast<float>(color_.alphaF() * fading(distance, reach_)));
            line[column] = shade.rgba();
        }
    }
    return picture;
}

} // namespace orvelle
