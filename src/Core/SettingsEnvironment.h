#pragma once

#include "Core/NotchEnvironment.h"

namespace orvelle {

class UndoOffer;
class UpdateChecker;

/// What the settings window edits and calls. The application owns all of it for the life of the
/// process.
struct SettingsEnvironment {
    NotchEnvironment notch;
    UpdateChecker& updateChecker;
    UndoOffer& undo; ///< the settings'
    std::function<void()> reportBug;
};

} // namespace orvelle
