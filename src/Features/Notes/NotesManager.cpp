#include "Features/Notes/NotesManager.h"

#include "Foundation/Text.h"
#include "Models/Symbol.h"
#include "Platform/RunLoop.h"

namespace orvelle {

NotesManager::NotesManager(Platform& platform)
    : FeatureModule("notes", "Notes", std::string("note.text"_symbol)), platform_(platform),
      log_(platform.log(), "NotesManager"),
      file_(platform, "note_items.json", {&NoteItem::fromJson, &NoteItem::json, "id"},
            {[this](std::vector<NoteItem> merged) { items = std::move(merged); },
             [this](const std::string& reason) {
                 log_.error("Failed to save note items: " + reason);
             }}) {
    loadItems();
}

void NotesManager::addItem(std::string_view text) {
    const auto trimmed = Text::trimmingBlanks(text);
    if (trimmed.empty())
        return;
    items.update([&](auto& list) {
        list.insert(list.begin(),
                    {UUID::random(), std::string(trimmed), platform_.runLoop().now()});
    });
    saveItems();
}

void NotesManager::removeItem(const NoteItem& item) {
    items.update([id = item.id](auto& list) {
        std::erase_if(list, [&](const NoteItem& each) { return each.id == id; });
    });
    saveItems();
}

void NotesManager::restore(const RemovedRecords<NoteItem>& removed) {
    items.update([&](auto& list) { removed.restoreTo(list, NewRecords::first); });
    saveItems();
}

void NotesManager::clear() {
    items = std::vector<NoteItem>();
    saveItems();
}

void NotesManager::loadItems() {
    auto loading = file_.load();
    if (!loading.problem.empty())
        log_.error("Failed to load note items: " + loading.problem);
    else
        items = std::move(loading.records);
}

void NotesManager::saveItems() {
    file_.save(items.get());
}

} // namespace orvelle
