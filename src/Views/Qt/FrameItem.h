#pragma once

#include <QImage>
#include <QQuickPaintedItem>

namespace orvelle {

/// A moving picture that fills the item, cut at the sides that are too long, with round corners.
class FrameItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage frame READ frame WRITE setFrame NOTIFY frameChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY frameChanged FINAL)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)
    /// -1 flips left and right about the centre.
    Q_PROPERTY(double horizontalScale READ horizontalScale WRITE setHorizontalScale NOTIFY
                   horizontalScaleChanged FINAL)

public:
    explicit FrameItem(QQuickItem* parent = nullptr);

    QImage frame() const { return frame_; }
    void setFrame(const QImage& frame);
    bool isEmpty() const { return frame_.isNull(); }
    double radius() const { return radius_; }
    void setRadius(double radius);
    double horizontalScale() const { return horizontalScale_; }
    void setHorizontalScale(double scale);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void frameChanged();
    void radiusChanged();
    void horizontalScaleChanged();

private:
    QImage frame_;
    double radius_ = 0;
    double horizontalScale_ = 1;
};

} // namespace orvelle
