#pragma once

#include "Models/TodoItem.h"
#include "Views/Components/EntryList.h"

namespace orvelle {

class TodoManager;
class UndoOffer;

/// The checklist's panel.
class TodoExpandedView : public EntryList {
public:
    explicit TodoExpandedView(TodoManager& manager, UndoOffer* undo = nullptr)
        : manager_(manager), undo_(undo) {}

    std::string_view prompt() const override { return "Add a task..."; }
    FilePlaceholder emptyState() const override;
    std::vector<Row> rows() const override;
    /// Only while some task is completed.
    std::vector<MenuEntry> contextMenu() const override;

    void add(std::string_view text) override;
    void performLeading(UUID id) override;
    void performTrailing(UUID id) override;

private:
    static Row todoRowContent(const TodoItem& item);

    TodoManager& manager_;
    UndoOffer* undo_;
};

} // namespace orvelle
