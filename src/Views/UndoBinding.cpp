#include "Views/UndoBinding.h"

#include "Core/UndoOffer.h"

namespace orvelle {

void UndoBinding::attach(const ViewEnvironment& environment) {
    offer_ = environment.settings ? &environment.settings->undo : &environment.notch.undo;
    follow(offer_->text);
}

void UndoBinding::refresh() {
    const auto& text = offer_->text.get();
    if (!text.empty())
        show_text(toQt(std::string_view(text)));
    show_isOffered(!text.empty());
}

void UndoBinding::undo() {
    offer_->undo();
}

} // namespace orvelle
