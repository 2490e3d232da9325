#include "Views/Qt/FileIconItem.h"

#include "Platform/FileIcons.h"
#include "Views/Qt/Values.h"
#include "Views/Qt/ViewEngine.h"

#include <algorithm>

namespace orvelle {

FileIconItem::FileIconItem(QQuickItem* parent) : PictureItem(Extent::ofItem, parent) {}

void FileIconItem::setIcon(const QString& icon) {
    if (icon == icon_)
        return;
    icon_ = icon;
    redraw();
    Q_EMIT iconChanged();
}

QImage FileIconItem::picture(double devicePixelRatio) const {
    const auto* engine = qobject_cast<ViewEngine*>(qmlEngine(this));
    if (!engine)
        return {};
    const int side = qRound(std::min(width(), height()) * devicePixelRatio);
    return sharedImage(
               engine->environment().platform.fileIcons().picture(icon_.toStdString(), side))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace orvelle
