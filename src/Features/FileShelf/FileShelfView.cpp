#include "Features/FileShelf/FileShelfView.h"

#include "Core/UndoOffer.h"
#include "Features/FileShelf/AirDropHelper.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Models/Symbol.h"
#include "Platform/FileViewer.h"
#include "Platform/Pasteboard.h"
#include "Platform/RunLoop.h"
#include "Platform/Workspace.h"

#include <algorithm>
#include <cmath>

namespace orvelle {

namespace {

// The sizes of the system's text styles.
constexpr double title3 = 15;
constexpr double caption = 10;

} // namespace

int AdaptiveColumns::count(double width) const {
    return std::max(1, static_cast<int>(std::floor((width + spacing) / (minimum + spacing))));
}

double AdaptiveColumns::columnWidth(double width) const {
    const int columns = count(width);
    return (width - spacing * (columns - 1)) / columns;
}

FileShelfView::FileShelfView(FileShelfManager& manager, Platform& platform, UndoOffer* undo)
    : manager_(manager), platform_(platform), undo_(undo) {}

std::vector<const ShelfItem*> FileShelfView::items() const {
    std::vector<const ShelfItem*> shown;
    for (const auto& item : manager_.items.get())
        if (!undo_ || !undo_->holdsBack(item.id))
            shown.push_back(&item);
    return shown;
}

bool FileShelfView::isEmpty() const {
    return items().empty();
}

StyledSymbol FileShelfView::emptySymbol() const {
    return {"arrow.down.doc"_symbol, title3, notchTertiary};
}

StyledText FileShelfView::emptyText() const {
    return {"Drop files here", {caption, FontWeight::regular, notchTertiary}};
}

Color FileShelfView::dropOutlineColor(bool isDragSessionActive) const {
    return isDragSessionActive ? notchAccent : notchTertiary;
}

std::vector<ShelfItemCell> FileShelfView::cells() const {
    std::vector<ShelfItemCell> cells;
    for (const auto* item : items())
        cells.push_back(
            {item->id,
             item->icon,
             {item->name, {ShelfItemCell::nameSize, FontWeight::regular, notchSecondary}}});
    return cells;
}

StyledSymbol FileShelfView::shareAllSymbol() const {
    return {"square.and.arrow.up"_symbol, caption, colors::white};
}

StyledText FileShelfView::shareAllText() const {
    return {"Share All", {caption, FontWeight::regular, colors::white}};
}

void FileShelfView::shareAll() {
    std::vector<std::string> urls;
    for (const auto* item : items())
        urls.push_back(item->url);
    AirDropHelper::share(urls, {}, platform_);
}

const ShelfItem* FileShelfView::item(UUID id) const {
    for (const auto* item : items())
        if (item->id == id)
            return item;
    return nullptr;
}

void FileShelfView::open(UUID id) {
    if (const auto* file = item(id))
        platform_.workspace().openDocument(file->url);
}

void FileShelfView::showInFinder(UUID id) {
    if (const auto* file = item(id))
        platform_.fileViewer().select({file->url});
}

void FileShelfView::copy(UUID id) {
    if (const auto* file = item(id))
        platform_.pasteboard().writeFiles({file->url});
}

void FileShelfView::share(UUID id) {
    if (const auto* file = item(id))
        AirDropHelper::share({file->url}, {}, platform_);
}

void FileShelfView::remove(UUID id) {
    const auto* file = item(id);
    if (!file)
        return;
    const auto removeForGood = [&manager = manager_, id] {
        const auto& items = manager.items.get();
        const auto left = std::ranges::find(items, id, &ShelfItem::id);
        if (left != items.end())
            manager.removeFile(ShelfItem(*left));
    };
    if (undo_)
        undo_->offer({"File removed", [] {}, removeForGood, id});
    else
        removeForGood();
}

std::vector<MenuEntry> FileShelfView::contextMenu(UUID id) const {
    // The menu may outlive the view that opened it.
    const auto act = [view = *this, id](void (FileShelfView::*action)(UUID)) {
        return [view, id, action]() mutable { (view.*action)(id); };
    };
    return {
        {"Open", act(&FileShelfView::open)},
        {"Show in Finder", act(&FileShelfView::showInFinder)},
        {"Copy", act(&FileShelfView::copy)},
        {"Share...", act(&FileShelfView::share)},
        {.title = "Remove",
         .perform = act(&FileShelfView::remove),
         .isDestructive = true,
         .followsDivider = true},
    };
}

std::optional<FileShelfView::ItemProvider> FileShelfView::dragItem(UUID id) const {
    const auto* file = item(id);
    if (!file)
        return std::nullopt;
    return ItemProvider{file->url, file->name};
}

bool FileShelfView::handleDrop(const std::vector<DroppedProvider>& providers) {
    // What is held back would take its room, or the file of its name.
    if (undo_)
        undo_->finish();
    const auto take = [&manager = manager_, &platform = platform_](DroppedProvider::Item item) {
        const auto* url = std::get_if<DroppedProvider::URL>(&item);
        const auto* data = std::get_if<DroppedProvider::DataRepresentation>(&item);
        if (!url && !data)
            return;
        platform.runLoop().post(
            [&manager, address = url ? url->url : data->bytes] { manager.addFile(address); });
    };
    for (const auto& provider : providers)
        provider.loadItem(take);
    return !providers.empty();
}

Subscription FileShelfView::paste() {
    return platform_.pasteboard().readFiles([this](const std::vector<std::string>& urls) {
        std::vector<DroppedProvider> copied;
        for (const auto& url : urls)
            copied.push_back({[url](const auto& loaded) { loaded(DroppedProvider::URL{url}); }});
        handleDrop(copied);
    });
}

} // namespace orvelle
