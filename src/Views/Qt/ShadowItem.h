#pragma once

#include "Views/Qt/PictureItem.h"

#include <QColor>

namespace orvelle {

/// The shadow of a rectangle with round corners that lies in the middle of the item.
class ShadowItem : public PictureItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed FINAL)
    /// How far the shadow reaches beyond the rectangle, to the item's edges.
    Q_PROPERTY(double reach MEMBER reach_ NOTIFY changed FINAL)
    /// Of the rectangle's corners.
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed FINAL)

public:
    explicit ShadowItem(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    QImage picture(double devicePixelRatio) const override;

private:
    QColor color_;
    double reach_ = 0;
    double radius_ = 0;
};

} // namespace orvelle
