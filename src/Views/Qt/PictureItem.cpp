#include "Views/Qt/PictureItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace orvelle {

PictureItem::PictureItem(Extent extent, QQuickItem* parent) : QQuickItem(parent), extent_(extent) {
    setFlag(ItemHasContents);
}

void PictureItem::redraw() {
    isOutdated_ = true;
    update();
}

void PictureItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    if (extent_ == Extent::ofItem && now.size() != before.size())
        redraw();
}

void PictureItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        redraw();
    QQuickItem::itemChange(change, data);
}

QSGNode* PictureItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (isOutdated_ || !node) {
        isOutdated_ = false;
        const QImage shown = picture(window()->effectiveDevicePixelRatio());
        if (shown.isNull()) {
            delete node;
            return nullptr;
        }
        if (!node) {
            node = window()->createImageNode();
            node->setOwnsTexture(true);
        }
        node->setTexture(window()->createTextureFromImage(shown));
    }
    node->setRect(place());
    return node;
}

} // namespace orvelle
