#pragma once

#include "Views/Qt/PictureItem.h"

#include <QString>

namespace orvelle {

/// The desktop's picture of a kind of file, as large as the item. Draws nothing for a word that the
/// desktop has no picture for.
class FileIconItem : public PictureItem {
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
    QImage picture(double devicePixelRatio) const override;

private:
    QString icon_;
};

} // namespace orvelle
