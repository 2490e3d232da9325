#pragma once

#include "Core/UndoOffer.h"
#include "Platform/UserDefaults.h"

#include <functional>
#include <string>

namespace orvelle {

/// Has `reset` write settings, and offers back what it changed, unset keys too, where there is an
/// `undo`. What the user
/// changes after the reset stays. `undone` follows an undo.
void resetWithUndo(UserDefaults& defaults, UndoOffer* undo, std::string text,
                   const std::function<void()>& reset, std::function<void()> undone = {});

} // namespace orvelle
