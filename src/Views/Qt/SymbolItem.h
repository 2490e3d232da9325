#pragma once

#include "Views/Qt/PictureItem.h"

#include <QColor>
#include <QFont>
#include <QString>

namespace orvelle {

/// One symbol, as large by itself as suits a text of `size` pixels.
class SymbolItem : public PictureItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Symbol)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(double size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY weightChanged)
    Q_PROPERTY(
        bool isHierarchical READ isHierarchical WRITE setHierarchical NOTIFY isHierarchicalChanged)

public:
    explicit SymbolItem(QQuickItem* parent = nullptr);

    QString name() const { return name_; }
    void setName(const QString& name);
    double size() const { return size_; }
    void setSize(double size);
    QColor color() const { return color_; }
    void setColor(const QColor& color);
    int weight() const { return weight_; }
    void setWeight(int weight);
    bool isHierarchical() const { return isHierarchical_; }
    void setHierarchical(bool isHierarchical);

Q_SIGNALS:
    void nameChanged();
    void sizeChanged();
    void colorChanged();
    void weightChanged();
    void isHierarchicalChanged();

protected:
    QImage picture(double devicePixelRatio) const override;
    QRectF place() const override;

private:
    void follow();

    QString name_;
    double size_ = 0;
    QColor color_ = Qt::white;
    int weight_ = QFont::Normal;
    bool isHierarchical_ = false;
};

} // namespace orvelle
