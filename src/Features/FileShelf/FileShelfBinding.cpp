#include "Features/FileShelf/FileShelfBinding.h"

#include "Core/UndoOffer.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Platform/FileIcons.h"

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPixmap>

#include <memory>

namespace orvelle {

namespace {

UUID idFrom(const QString& text) {
    return UUID::parse(text.toStdString()).value_or(UUID{});
}

/// The address alone for most programs; browsers take it with the name.
std::unique_ptr<QMimeData> mimeData(const FileShelfView::ItemProvider& item) {
    const auto url = QString::fromStdString(item.url);
    const auto named = url + u'\n' + QString::fromStdString(item.suggestedName);
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("text/uri-list"), url.toUtf8() + "\r\n");
    data->setData(QStringLiteral("text/x-moz-url"),
                  QByteArray(reinterpret_cast<const char*>(named.utf16()),
                             named.size() * static_cast<qsizetype>(sizeof(char16_t))));
    return data;
}

QPixmap pixmapFrom(const Image& picture, double devicePixelRatio) {
    auto pixmap = QPixmap::fromImage(sharedImage(picture));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

} // namespace

void FileShelfBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.fileShelfManager;
    view_.emplace(manager, environment.platform, &environment.notch.undo);
    icons_ = &environment.platform.fileIcons();
    state_ = &environment.notch.notchState;
    takeKeyboard_ = environment.takeKeyboard;
    follow(manager.items, state_->isDragSessionActive, environment.notch.undo.text);
}

void FileShelfBinding::refresh() {
    show_isEmpty(view_->isEmpty());
    show_isDropAwaited(state_->isDragSessionActive);
    show_emptySymbol(toQt(view_->emptySymbol()));
    show_emptyText(toQt(view_->emptyText()));
    show_dropOutlineColor(toQt(view_->dropOutlineColor(state_->isDragSessionActive)));
    show_shareAllSymbol(toQt(view_->shareAllSymbol()));
    show_shareAllText(toQt(view_->shareAllText()));
    std::vector<ShelfItemValue> cells;
    for (const auto& cell : view_->cells())
        cells.push_back({QString::fromStdString(cell.id.text()), QString::fromStdString(cell.icon),
                         toQt(cell.name)});
    cells_.show(cells);
}

double FileShelfBinding::columnWidth(double width) const {
    return FileShelfView::columns.columnWidth(width);
}

void FileShelfBinding::open(const QString& id) {
    view_->open(idFrom(id));
}

void FileShelfBinding::copy(const QString& id) {
    view_->copy(idFrom(id));
}

void FileShelfBinding::remove(const QString& id) {
    view_->remove(idFrom(id));
}

MenuValue FileShelfBinding::contextMenu(const QString& id) const {
    return {view_->contextMenu(idFrom(id))};
}

void FileShelfBinding::drag(const QString& id) {
    const auto item = view_->dragItem(idFrom(id));
    if (!item)
        return;
    const double ratio = qGuiApp->devicePixelRatio();
    const int side = qRound(ShelfItemCell::iconSize * ratio);
    auto* drag = new QDrag(qGuiApp); // which deletes itself; the panel may close meanwhile
    drag->setMimeData(mimeData(*item).release());
    for (const auto& cell : view_->cells())
        if (cell.id == idFrom(id))
            drag->setPixmap(pixmapFrom(icons_->picture(cell.icon, side), ratio));
    drag->setHotSpot(QPoint(qRound(ShelfItemCell::iconSize / 2), 8));
    drag->exec(Qt::CopyAction);
}

void FileShelfBinding::shareAll() {
    view_->shareAll();
}

void FileShelfBinding::takeKeyboard() const {
    if (takeKeyboard_)
        takeKeyboard_();
}

void FileShelfBinding::paste() {
    pasting_ = view_->paste();
}

} // namespace orvelle
