#pragma once

#include <QImage>
#include <QQuickItem>

namespace orvelle {

/// An item that shows one picture. It is drawn when something of it has changed, not in each frame.
class PictureItem : public QQuickItem {
    Q_OBJECT

public:
    enum class Extent {
        ofItem, ///< another size of the item is another picture
        ofPicture,
    };
    PictureItem(Extent extent, QQuickItem* parent);

protected:
    void redraw();
    /// A null one shows nothing.
    virtual QImage picture(double devicePixelRatio) const = 0;
    /// Where it stands in the item.
    virtual QRectF place() const { return boundingRect(); }

    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    Extent extent_;
    bool isOutdated_ = true;
};

} // namespace orvelle
