#include "Views/Qt/NotchShapeItem.h"

#include <QPainter>

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

} // namespace

NotchShapeItem::NotchShapeItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void NotchShapeItem::setPart(double& part, double value) {
    if (part == value)
        return;
    part = value;
    update();
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

QPainterPath NotchShapeItem::path() const {
    QPainterPath path;
    for (const auto& element : shape_.path({{0, 0}, {width(), height()}}))
        add(path, element);
    return path;
}

QRegion NotchShapeItem::region() const {
    return QRegion(path().toFillPolygon().toPolygon());
}

void NotchShapeItem::paint(QPainter* painter) {
    const QPainterPath outline = path();
    painter->fillPath(outline, color_);
    if (stroke_.lineWidth <= 0)
        return;
    QPen pen(stroke_.color, stroke_.lineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    pen.setMiterLimit(stroke_.miterLimit);
    painter->strokePath(outline, pen);
}

} // namespace orvelle
