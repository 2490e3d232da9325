#pragma once

#include "Models/NoteItem.h"
#include "Platform/Platform.h"
#include "Views/Components/EntryList.h"

namespace orvelle {

class NotesManager;
class UndoOffer;

/// The panel of the notes.
class NotesExpandedView : public EntryList {
public:
    explicit NotesExpandedView(NotesManager& manager, Platform& platform = Platform::shared(),
                               UndoOffer* undo = nullptr)
        : manager_(manager), undo_(undo), platform_(platform) {}

    std::string_view prompt() const override { return "Add a note..."; }
    FilePlaceholder emptyState() const override;
    std::vector<Row> rows() const override;
    std::vector<MenuEntry> contextMenu() const override;

    void add(std::string_view text) override { addNote(text); }
    void performLeading(UUID id) override { copyNote(id); }
    std::string_view leadingDone() const override { return "Copied"; }
    void performTrailing(UUID id) override;

private:
    static Row noteRowContent(const NoteItem& item);
    void addNote(std::string_view text);
    void copyNote(UUID id);

    NotesManager& manager_;
    UndoOffer* undo_;
    Platform& platform_;
};

} // namespace orvelle
