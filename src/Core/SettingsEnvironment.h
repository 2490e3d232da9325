#pragma once

#include "Core/NotchEnvironment.h"

namespace orvelle {

class UpdateChecker;

/// What the settings window edits and calls. The application owns all of it for the life of the
/// process.
struct SettingsEnvironment {
    NotchEnvironment notch;
    UpdateChecker& updateChecker;
    std::function<void()> reportBug;
};

} // namespace orvelle
