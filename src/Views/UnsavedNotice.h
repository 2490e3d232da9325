#pragma once

#include "Platform/UnsavedChanges.h"
#include "Views/Components/TextStyle.h"

#include <optional>

namespace orvelle {

/// A line over the panel's lower edge while the disk refuses what the user has changed.
struct UnsavedNotice {
    static constexpr double height = 14;
    static constexpr Color background = Color::white(0, 0.85);

    /// None while all is saved. Of several reasons the first of `WriteFailure`.
    static std::optional<StyledText> text(const UnsavedChanges::Files& files);
};

} // namespace orvelle
