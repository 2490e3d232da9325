#include "Views/Qt/SymbolItem.h"

#include "Views/Qt/SymbolImages.h"

namespace orvelle {

SymbolItem::SymbolItem(QQuickItem* parent) : PictureItem(Extent::ofPicture, parent) {}

void SymbolItem::setName(const QString& name) {
    if (name == name_)
        return;
    name_ = name;
    follow();
    Q_EMIT nameChanged();
}

void SymbolItem::setSize(double size) {
    if (size == size_)
        return;
    size_ = size;
    follow();
    Q_EMIT sizeChanged();
}

void SymbolItem::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    follow();
    Q_EMIT colorChanged();
}

void SymbolItem::setWeight(int weight) {
    if (weight == weight_)
        return;
    weight_ = weight;
    follow();
    Q_EMIT weightChanged();
}

void SymbolItem::setHierarchical(bool isHierarchical) {
    if (isHierarchical == isHierarchical_)
        return;
    isHierarchical_ = isHierarchical;
    follow();
    Q_EMIT isHierarchicalChanged();
}

void SymbolItem::follow() {
    const QSizeF extent = SymbolImages::extent(name_, size_, weight_);
    setImplicitSize(extent.width(), extent.height());
    redraw();
}

QImage SymbolItem::picture(double devicePixelRatio) const {
    return SymbolImages::render(name_, size_, color_, devicePixelRatio, {weight_, isHierarchical_});
}

// Whole pixels, in the middle of whatever room the item was given.
QRectF SymbolItem::place() const {
    return QRectF(
        QPointF(qRound((width() - implicitWidth()) / 2), qRound((height() - implicitHeight()) / 2)),
        QSizeF(implicitWidth(), implicitHeight()));
}

} // namespace orvelle
