#include "Core/UndoOffer.h"

#include "Models/NotchState.h"

#include <utility>

namespace orvelle {

void UndoOffer::offer(Removal removal) {
    const auto former = take();
    if (former && former->finish)
        former->finish();
    removal_ = std::move(removal);
    timeOver_ = runLoop_.after(duration, [this] { finish(); });
    text = removal_->text;
}

void UndoOffer::undo() {
    const auto removal = take();
    if (!removal)
        return;
    text = std::string();
    removal->undo();
}

void UndoOffer::finish() {
    const auto removal = take();
    if (!removal)
        return;
    text = std::string();
    if (removal->finish)
        removal->finish();
}

bool UndoOffer::holdsBack(UUID id) const {
    return removal_ && removal_->heldBack == id;
}

std::optional<UndoOffer::Removal> UndoOffer::take() {
    timeOver_.reset();
    return std::exchange(removal_, std::nullopt);
}

PanelUndoOffer::PanelUndoOffer(const NotchState& state, RunLoop& runLoop)
    : UndoOffer(runLoop), shown_(state.activePanel),
      panelFollows_(state.activePanel.observe([this](ActivePanel panel) {
          if (std::exchange(shown_, panel) != panel)
              finish();
      })),
      stateFollows_(state.expandedState.observe([this](NotchExpandedState shown) {
          if (shown < NotchExpandedState::expanded)
              finish();
      })),
      dragFollows_(state.isDragSessionActive.observe([this](bool isActive) {
          if (isActive)
              finish();
      })) {}

} // namespace orvelle
