#pragma once

#include "Foundation/Color.h"
#include "Platform/Platform.h"
#include "Views/Components/TextStyle.h"

#include <string_view>

namespace orvelle {

class MirrorManager;

/// The mirror's panel: the camera's picture, that it is on its way, or why there is none. Lengths
/// are points.
class MirrorExpandedView {
public:
    explicit MirrorExpandedView(MirrorManager& manager, Platform& platform = Platform::shared())
        : manager_(manager), platform_(platform) {}

    static constexpr double cornerRadius = 8; ///< of the picture, which fills the panel
    static constexpr double spacing = 8;      ///< of the centred columns
    static constexpr double togglePadding = 6;
    static constexpr double toggleMargin = 8; ///< from the top right corner
    static constexpr Color toggleBackground = Color::white(0, 0.5);
    static constexpr double buttonHorizontalPadding = 16;
    static constexpr double buttonVerticalPadding = 6;
    static constexpr double buttonCornerRadius = 6;
    static constexpr Color buttonBackground = Color::white(1, 0.1);

    /// The preview; else the view that asks for permission.
    bool showsPreview() const;
    /// -1 flips left and right about the centre, 1 does not.
    double horizontalScale() const;
    StyledText startingText() const;
    StyledSymbol toggleSymbol() const;
    std::string_view toggleHelp() const;

    StyledSymbol permissionSymbol() const;
    StyledText permissionTitle() const;
    StyledText permissionText() const;
    StyledText settingsButton() const;

    void appear();
    void disappear();
    void toggleMirrored();
    void openSystemSettings();

private:
    MirrorManager& manager_;
    Platform& platform_;
};

} // namespace orvelle
