#include "Features/Todo/TodoExpandedView.h"

#include "Core/RemovedRecords.h"
#include "Extensions/ColorTheme.h"
#include "Features/Todo/TodoManager.h"
#include "Models/Symbol.h"

#include <algorithm>

namespace orvelle {

FilePlaceholder TodoExpandedView::emptyState() const {
    return EntryList::emptyState("No tasks yet", "checklist"_symbol);
}

EntryList::Row TodoExpandedView::todoRowContent(const TodoItem& item) {
    const bool isDone = item.isCompleted;
    Row row;
    row.id = item.id;
    row.text = {item.title, {12, FontWeight::regular, isDone ? notchTertiary : colors::white}};
    row.isStruckThrough = isDone;
    row.button = isDone ? StyledSymbol{"checkmark.circle.fill"_symbol, 14, colors::green}
                        : StyledSymbol{"circle"_symbol, 14, notchTertiary};
    row.leading = isDone ? SwipeAction{"Undo", "arrow.uturn.backward"_symbol, colors::orange}
                         : SwipeAction{"Done", "checkmark.circle.fill"_symbol, colors::green};
    row.help = row.leading.label;
    row.trailing = deleteAction();
    return row;
}

std::vector<EntryList::Row> TodoExpandedView::rows() const {
    std::vector<Row> rows;
    for (const auto& item : manager_.items.get())
        rows.push_back(todoRowContent(item));
    return rows;
}

std::vector<MenuEntry> TodoExpandedView::contextMenu() const {
    const auto& items = manager_.items.get();
    if (std::none_of(items.begin(), items.end(),
                     [](const TodoItem& item) { return item.isCompleted; }))
        return {};
    const auto clear = [&manager = manager_, undo = undo_] {
        removeWithUndo(undo, manager, "Completed tasks cleared",
                       [&manager] { manager.clearCompleted(); });
    };
    return {{.title = "Clear Completed", .perform = clear, .isDestructive = true}};
}

void TodoExpandedView::add(std::string_view text) {
    manager_.addItem(text);
}

void TodoExpandedView::performLeading(UUID id) {
    manager_.toggleItem({.id = id, .title = {}, .createdAt = {}});
}

void TodoExpandedView::performTrailing(UUID id) {
    removeWithUndo(undo_, manager_, "Task deleted",
                   [&] { manager_.removeItem({.id = id, .title = {}, .createdAt = {}}); });
}

} // namespace orvelle
