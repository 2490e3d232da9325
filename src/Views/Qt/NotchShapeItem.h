#pragma once

#include "Views/Qt/Values.h"

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>
#include <QRegion>

namespace orvelle {

/// The black shape of the notch, filling the item.
class NotchShapeItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double bottomCornerRadius READ bottomCornerRadius WRITE setBottomCornerRadius NOTIFY
                   shapeChanged)
    Q_PROPERTY(double topFlare READ topFlare WRITE setTopFlare NOTIFY shapeChanged)
    Q_PROPERTY(double bodyInset READ bodyInset WRITE setBodyInset NOTIFY shapeChanged)
    /// Where content may be painted, in whole points: renderers cut at those.
    Q_PROPERTY(QRectF contentRect READ contentRect NOTIFY contentRectChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(orvelle::StrokeValue stroke READ stroke WRITE setStroke NOTIFY strokeChanged)

public:
    explicit NotchShapeItem(QQuickItem* parent = nullptr);

    double bottomCornerRadius() const { return shape_.bottomCornerRadius; }
    void setBottomCornerRadius(double radius) { setPart(shape_.bottomCornerRadius, radius); }
    double topFlare() const { return shape_.topFlare; }
    void setTopFlare(double flare) { setPart(shape_.topFlare, flare); }
    double bodyInset() const { return shape_.bodyInset; }
    void setBodyInset(double inset) { setPart(shape_.bodyInset, inset); }
    QColor color() const { return color_; }
    void setColor(const QColor& color);
    StrokeValue stroke() const { return stroke_; }
    void setStroke(const StrokeValue& stroke);

    QRectF contentRect() const { return contentRect_; }

    /// The outline in the item's coordinates.
    QPainterPath path() const;
    /// Every pixel that the shape covers by at least half, for a window that cannot be translucent.
    QRegion region() const;

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void shapeChanged();
    void contentRectChanged();
    void colorChanged();
    void strokeChanged();

protected:
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    void followContentRect();
    void setPart(double& part, double value);

    NotchShape shape_;
    QRectF contentRect_;
    QColor color_ = Qt::black;
    StrokeValue stroke_;
};

} // namespace orvelle
