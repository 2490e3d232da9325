#include "Features/Notes/NotesExpandedView.h"

#include "Core/RemovedRecords.h"
#include "Features/Notes/NotesManager.h"
#include "Models/Symbol.h"
#include "Platform/Pasteboard.h"

namespace orvelle {

FilePlaceholder NotesExpandedView::emptyState() const {
    return EntryList::emptyState("No notes yet", "note.text"_symbol);
}

EntryList::Row NotesExpandedView::noteRowContent(const NoteItem& item) {
    Row row;
    row.id = item.id;
    row.text = {item.text, {12, FontWeight::regular, colors::white}};
    row.button = {"doc.on.doc"_symbol, 11, colors::white};
    row.buttonPlace = ButtonPlace::behindText;
    row.help = "Copy to clipboard";
    row.leading = {"Copy", "doc.on.doc"_symbol, colors::blue};
    row.trailing = deleteAction();
    return row;
}

std::vector<EntryList::Row> NotesExpandedView::rows() const {
    std::vector<Row> rows;
    for (const auto& item : manager_.items.get())
        rows.push_back(noteRowContent(item));
    return rows;
}

std::vector<MenuEntry> NotesExpandedView::contextMenu() const {
    const auto clear = [&manager = manager_, undo = undo_] {
        removeWithUndo(undo, manager, "All notes cleared", [&manager] { manager.clear(); });
    };
    return {{.title = "Clear All Notes", .perform = clear, .isDestructive = true}};
}

void NotesExpandedView::addNote(std::string_view text) {
    manager_.addItem(text);
}

void NotesExpandedView::copyNote(UUID id) {
    for (const auto& item : manager_.items.get())
        if (item.id == id)
            platform_.pasteboard().setString(item.text);
}

void NotesExpandedView::performTrailing(UUID id) {
    removeWithUndo(undo_, manager_, "Note deleted",
                   [&] { manager_.removeItem({.id = id, .text = {}, .createdAt = {}}); });
}

} // namespace orvelle
