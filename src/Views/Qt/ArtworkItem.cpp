#include "Views/Qt/ArtworkItem.h"

#include <QPainter>
#include <QPainterPath>

namespace orvelle {

ArtworkValue toQt(const MediaArtwork& artwork) {
    return {artwork.side,         artwork.cornerRadius,      toQt(artwork.background),
            toQt(artwork.symbol), artwork.image.has_value(), {artwork.image.value_or(Image())}};
}

ArtworkItem::ArtworkItem(QQuickItem* parent) : PictureItem(Extent::ofItem, parent) {}

void ArtworkItem::setImage(const ImageValue& image) {
    if (image == image_)
        return;
    image_ = image;
    redraw();
    Q_EMIT imageChanged();
}

void ArtworkItem::setRadius(double radius) {
    if (radius == radius_)
        return;
    radius_ = radius;
    redraw();
    Q_EMIT radiusChanged();
}

QImage ArtworkItem::picture(double devicePixelRatio) const {
    const QImage source = sharedImage(image_.image);
    const QSize size = (QSizeF(width(), height()) * devicePixelRatio).toSize();
    if (source.isNull() || size.isEmpty())
        return {};
    const auto filling =
        source.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    const double radius = radius_ * devicePixelRatio;
    outline.addRoundedRect(picture.rect(), radius, radius);
    QBrush brush(filling);
    brush.setTransform(QTransform::fromTranslate((size.width() - filling.width()) / 2.0,
                                                 (size.height() - filling.height()) / 2.0));
    painter.fillPath(outline, brush);
    return picture;
}

} // namespace orvelle
