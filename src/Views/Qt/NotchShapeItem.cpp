#include "Views/Qt/NotchShapeItem.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace orvelle {

namespace {

/// The arcs turn through a right angle between an upright and a level side, so each is a quarter of
/// a circle in the corner's square.
void addQuarterArc(QPainterPath& path, const PathElement& arc) {
    // The cubic whose middle lies on the circle.
    constexpr double handle = 0.5522847498;
    const QPointF start = path.currentPosition();
    const QPointF corner(arc.control.x, arc.control.y);
    const QPointF end(arc.end.x, arc.end.y);
    path.cubicTo(start + (corner - start) * handle, end + (corner - end) * handle, end);
}

void add(QPainterPath& path, const PathElement& element) {
    const QPointF end(element.end.x, element.end.y);
    switch (element.kind) {
    case PathElement::Kind::move:
        return path.moveTo(end);
    case PathElement::Kind::line:
        return path.lineTo(end);
    case PathElement::Kind::quadCurve:
        return path.quadTo({element.control.x, element.control.y}, end);
    case PathElement::Kind::arc:
        return addQuarterArc(path, element);
    case PathElement::Kind::close:
        return path.closeSubpath();
    }
}

/// Where a level line enters the outline and leaves it; empty where it passes by.
std::pair<double, double> extentAt(double y, const QPolygonF& outline) {
    double left = std::numeric_limits<int>::max();
    double right = 0;
    for (qsizetype index = 1; index < outline.size(); ++index) {
        const QPointF from = outline[index - 1];
        const QPointF to = outline[index];
        if ((from.y() < y) == (to.y() < y))
            continue;
        const double x = from.x() + (to.x() - from.x()) * (y - from.y()) / (to.y() - from.y());
        left = std::min(left, x);
        right = std::max(right, x);
    }
    return {left, right};
}

} // namespace

NotchShapeItem::NotchShapeItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void NotchShapeItem::setPart(double& part, double value) {
    if (part == value)
        return;
    part = value;
    update();
    followContentRect();
    Q_EMIT shapeChanged();
}

void NotchShapeItem::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    update();
    Q_EMIT colorChanged();
}

void NotchShapeItem::setStroke(const StrokeValue& stroke) {
    if (stroke == stroke_)
        return;
    stroke_ = stroke;
    update();
    Q_EMIT strokeChanged();
}

void NotchShapeItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickPaintedItem::geometryChange(now, before);
    followContentRect();
}

void NotchShapeItem::followContentRect() {
    const auto rect = shape_.contentRect({{0, 0}, {width(), height()}});
    const QPointF from(std::ceil(rect.minX()), std::ceil(rect.minY()));
    const QPointF to(std::floor(rect.maxX()), std::floor(rect.maxY()));
    const QRectF whole(from,
                       QSizeF(std::max(0.0, to.x() - from.x()), std::max(0.0, to.y() - from.y())));
    if (whole == contentRect_)
        return;
    contentRect_ = whole;
    Q_EMIT contentRectChanged();
}

QPainterPath NotchShapeItem::path() const {
    QPainterPath path;
    for (const auto& element : shape_.path({{0, 0}, {width(), height()}}))
        add(path, element);
    return path;
}

QRegion NotchShapeItem::region() const {
    // Curves become lines at a multiple of the size, or the corners would look cut off.
    constexpr double detail = 8;
    const QPolygonF outline = path().toFillPolygon(QTransform::fromScale(detail, detail));
    std::vector<QRect> bands; // rows of the same extent are one
    for (int y = 0; y < qRound(height()); ++y) {
        const auto [left, right] = extentAt((y + 0.5) * detail, outline);
        const QRect row(QPoint(qRound(left / detail), y), QPoint(qRound(right / detail) - 1, y));
        if (!bands.empty() && bands.back().left() == row.left() &&
            bands.back().right() == row.right())
            bands.back().setBottom(y);
        else if (row.isValid())
            bands.push_back(row);
    }
    QRegion region;
    region.setRects(bands.data(), static_cast<int>(bands.size()));
    return region;
}

void NotchShapeItem::paint(QPainter* painter) {
    const QPainterPath outline = path();
    if (color_.alpha() > 0)
        painter->fillPath(outline, color_);
    if (stroke_.lineWidth <= 0)
        return;
    QPen pen(stroke_.color, stroke_.lineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    pen.setMiterLimit(stroke_.miterLimit);
    painter->strokePath(outline, pen);
}

} // namespace orvelle
