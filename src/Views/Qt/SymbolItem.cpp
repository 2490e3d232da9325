#include "Views/Qt/SymbolItem.h"

#include "Views/Qt/SymbolImages.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace orvelle {

SymbolItem::SymbolItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void SymbolItem::setName(const QString& name) {
    if (name == name_)
        return;
    name_ = name;
    redraw();
    Q_EMIT nameChanged();
}

void SymbolItem::setSize(double size) {
    if (size == size_)
        return;
    size_ = size;
    redraw();
    Q_EMIT sizeChanged();
}

void SymbolItem::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    redraw();
    Q_EMIT colorChanged();
}

void SymbolItem::redraw() {
    const QSizeF extent = SymbolImages::extent(name_, size_);
    setImplicitSize(extent.width(), extent.height());
    isPictureOutdated_ = true;
    update();
}

void SymbolItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        redraw();
    QQuickItem::itemChange(change, data);
}

QSGNode* SymbolItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (isPictureOutdated_ || !node) {
        isPictureOutdated_ = false;
        const QImage picture =
            SymbolImages::render(name_, size_, color_, window()->effectiveDevicePixelRatio());
        if (picture.isNull()) {
            delete node;
            return nullptr;
        }
        if (!node) {
            node = window()->createImageNode();
            node->setOwnsTexture(true);
        }
        node->setTexture(window()->createTextureFromImage(picture));
    }
    // Whole pixels, in the middle of whatever room the item was given.
    const QRectF picture(
        QPointF(qRound((width() - implicitWidth()) / 2), qRound((height() - implicitHeight()) / 2)),
        QSizeF(implicitWidth(), implicitHeight()));
    node->setRect(picture);
    return node;
}

} // namespace orvelle
