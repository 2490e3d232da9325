#include "Platform/Linux/ScreenCoordinates.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace orvelle::ScreenCoordinates {

namespace {

/// The primary screen's bottom left in the toolkit's coordinates.
QPointF origin() {
    const auto* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {};
    const QRectF frame = screen->geometry();
    return frame.bottomLeft();
}

} // namespace

Rect fromQt(const QRectF& rect) {
    const Point corner = fromQt(rect.bottomLeft());
    return {corner, {rect.width(), rect.height()}};
}

Point fromQt(const QPointF& point) {
    const QPointF zero = origin();
    return {point.x() - zero.x(), zero.y() - point.y()};
}

Point pointer() {
    return fromQt(QPointF(QCursor::pos()) + QPointF(0.5, 0.5));
}

QRect toQt(const Rect& rect) {
    const QPointF zero = origin();
    const QPointF topLeft(rect.minX() + zero.x(), zero.y() - rect.maxY());
    return {topLeft.toPoint(), QSizeF(rect.size.width, rect.size.height).toSize()};
}

} // namespace orvelle::ScreenCoordinates
