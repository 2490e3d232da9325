#include "Features/Clipboard/ClipboardHistoryView.h"

#include "App/Constants.h"
#include "Core/RemovedRecords.h"
#include "Features/Clipboard/ClipboardManager.h"
#include "Models/Symbol.h"
#include "Platform/Formatting.h"
#include "Platform/RunLoop.h"

#include <algorithm>

namespace orvelle {

namespace {

std::string_view typeSymbol(ClipboardContentType type) {
    switch (type) {
    case ClipboardContentType::text:
        break;
    case ClipboardContentType::url:
        return "link"_symbol;
    case ClipboardContentType::email:
        return "envelope"_symbol;
    case ClipboardContentType::code:
        return "chevron.left.forwardslash.chevron.right"_symbol;
    case ClipboardContentType::number:
        return "number"_symbol;
    }
    return "doc.text"_symbol;
}

/// A text of several lines shows in one.
std::string inOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character >= 0 && character < ' '; },
        ' ');
    return text;
}

const ClipboardItem* find(const ClipboardManager& manager, UUID id) {
    const auto& items = manager.items.get();
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const ClipboardItem& item) { return item.id == id; });
    return found == items.end() ? nullptr : &*found;
}

} // namespace

StyledSymbol ClipboardHistoryView::searchSymbol() const {
    return {"magnifyingglass"_symbol, 12, notchSecondary};
}

FilePlaceholder ClipboardHistoryView::emptyStateView() const {
    const bool nothingMatches = !searchText.empty() && !manager_.items->empty();
    return {{"clipboard"_symbol, 28, notchTertiary},
            {nothingMatches ? "No results" : "No clipboard history",
             {12, FontWeight::regular, notchFaint}}};
}

std::vector<ClipboardItem> ClipboardHistoryView::filteredItems() const {
    return manager_.itemsContaining(searchText);
}

std::vector<ClipboardHistoryView::ClipboardItemRow> ClipboardHistoryView::rows() const {
    std::vector<ClipboardItemRow> rows;
    for (const auto& item : filteredItems())
        rows.push_back(row(item));
    return rows;
}

ClipboardHistoryView::ClipboardItemRow ClipboardHistoryView::row(const ClipboardItem& item) const {
    constexpr TextStyle detail{9, FontWeight::regular, notchFaint};
    const auto now = platform_.runLoop().now();
    return {
        .id = item.id,
        .type = {typeSymbol(item.contentType), 12, AppConstants::Theme::secondaryTextColor},
        .preview = {inOneLine(item.preview()), {11, FontWeight::regular, colors::white}},
        .details = {{item.sourceAppName, detail},
                    {"·", detail},
                    {platform_.formatting().relativeTime(item.timestamp, now), detail}},
        .copyButton = {"doc.on.doc"_symbol, 11, colors::white},
        .deleteButton = {"trash"_symbol, 11, colors::red},
    };
}

void ClipboardHistoryView::copy(UUID id) {
    if (const auto* item = find(manager_, id))
        manager_.copyToClipboard(*item);
}

void ClipboardHistoryView::remove(UUID id) {
    if (const auto* item = find(manager_, id))
        removeWithUndo(undo_, manager_, "Text deleted", [&] { manager_.deleteItem(*item); });
}

} // namespace orvelle
