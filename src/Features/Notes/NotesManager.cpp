#include "Features/Notes/NotesManager.h"

#include "Models/Symbol.h"

namespace orvelle {

NotesManager::NotesManager(Platform&)
    : FeatureModule("notes", "Notes", std::string("note.text"_symbol)) {}

} // namespace orvelle
