#pragma once

#include <QQuickItem>
#include <QString>

namespace orvelle {

/// The desktop's picture of a kind of file, as large as the item. Draws nothing for a word that the
/// desktop has no picture for.
class FileIconItem : public QQuickItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(FileIcon)
    /// What `FileIcons::icon` gave.
    Q_PROPERTY(QString icon READ icon WRITE setIcon NOTIFY iconChanged)

public:
    explicit FileIconItem(QQuickItem* parent = nullptr);

    QString icon() const { return icon_; }
    void setIcon(const QString& icon);

Q_SIGNALS:
    void iconChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    void redraw();

    QString icon_;
    bool isPictureOutdated_ = true;
};

} // namespace orvelle
