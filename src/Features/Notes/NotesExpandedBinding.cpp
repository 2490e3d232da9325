#include "Features/Notes/NotesExpandedBinding.h"

#include "Features/Notes/NotesExpandedView.h"
#include "Features/Notes/NotesManager.h"

namespace orvelle {

void NotesExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.notesManager;
    view_ =
        std::make_unique<NotesExpandedView>(manager, environment.platform, &environment.notch.undo);
    follow(manager.items);
}

} // namespace orvelle
