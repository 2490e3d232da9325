#include "Views/Qt/FileIconItem.h"

#include "Platform/FileIcons.h"
#include "Views/Qt/ViewEngine.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>

namespace orvelle {

FileIconItem::FileIconItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void FileIconItem::setIcon(const QString& icon) {
    if (icon == icon_)
        return;
    icon_ = icon;
    redraw();
    Q_EMIT iconChanged();
}

void FileIconItem::redraw() {
    isPictureOutdated_ = true;
    update();
}

void FileIconItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged)
        redraw();
    QQuickItem::itemChange(change, data);
}

void FileIconItem::geometryChange(const QRectF& now, const QRectF& before) {
    if (now.size() != before.size())
        redraw();
    QQuickItem::geometryChange(now, before);
}

QSGNode* FileIconItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    const auto* engine = qobject_cast<ViewEngine*>(qmlEngine(this));
    if (engine && (isPictureOutdated_ || !node)) {
        isPictureOutdated_ = false;
        const double side = std::min(width(), height()) * window()->effectiveDevicePixelRatio();
        const auto picture =
            engine->environment().platform.fileIcons().picture(icon_.toStdString(), qRound(side));
        if (!picture.pixels()) {
            delete node;
            return nullptr;
        }
        if (!node) {
            node = window()->createImageNode();
            node->setOwnsTexture(true);
        }
        const QImage pixels(picture.pixels(), picture.width(), picture.height(),
                            QImage::Format_RGBA8888);
        node->setTexture(window()->createTextureFromImage(
            pixels.convertToFormat(QImage::Format_ARGB32_Premultiplied)));
    }
    if (node)
        node->setRect(boundingRect());
    return node;
}

} // namespace orvelle
