#include "Views/Qt/FrameItem.h"

#include <QPainter>

#include <algorithm>

namespace orvelle {

FrameItem::FrameItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void FrameItem::setFrame(const QImage& frame) {
    frame_ = frame;
    update();
    Q_EMIT frameChanged();
}

void FrameItem::setRadius(double radius) {
    radius_ = radius;
    update();
    Q_EMIT radiusChanged();
}

void FrameItem::setHorizontalScale(double scale) {
    horizontalScale_ = scale;
    update();
    Q_EMIT horizontalScaleChanged();
}

void FrameItem::paint(QPainter* painter) {
    if (frame_.isNull())
        return;
    const double scale = std::max(width() / frame_.width(), height() / frame_.height());
    QBrush brush(frame_);
    brush.setTransform(QTransform()
                           .translate(width() / 2, height() / 2)
                           .scale(scale * horizontalScale_, scale)
                           .translate(-frame_.width() / 2.0, -frame_.height() / 2.0));
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setPen(Qt::NoPen);
    painter->setBrush(brush);
    painter->drawRoundedRect(boundingRect(), radius_, radius_);
}

} // namespace orvelle
