#include "Features/Mirror/MirrorExpandedView.h"

#include "Extensions/ColorTheme.h"
#include "Features/Mirror/MirrorManager.h"
#include "Models/Symbol.h"
#include "Platform/Workspace.h"

namespace orvelle {

bool MirrorExpandedView::showsPreview() const {
    return manager_.hasPermission;
}

double MirrorExpandedView::horizontalScale() const {
    return manager_.isMirrored ? -1 : 1;
}

StyledText MirrorExpandedView::startingText() const {
    return {"Starting camera...", {11, FontWeight::regular, notchSecondary}};
}

StyledSymbol MirrorExpandedView::toggleSymbol() const {
    return {manager_.isMirrored
                ? "arrow.left.and.right.righttriangle.left.righttriangle.right.fill"_symbol
                : "arrow.left.and.right.righttriangle.left.righttriangle.right"_symbol,
            12, colors::white};
}

std::string_view MirrorExpandedView::toggleHelp() const {
    return manager_.isMirrored ? "Disable mirror" : "Enable mirror";
}

StyledSymbol MirrorExpandedView::permissionSymbol() const {
    return {"person.crop.square"_symbol, 28, notchSecondary};
}

StyledText MirrorExpandedView::permissionTitle() const {
    return {"Camera Access Required", {14, FontWeight::semibold, colors::white}};
}

StyledText MirrorExpandedView::permissionText() const {
    return {"Grant camera access to use the Mirror widget.",
            {12, FontWeight::regular, notchSecondary}};
}

StyledText MirrorExpandedView::settingsButton() const {
    return {"Open System Settings", {12, FontWeight::medium, colors::white}};
}

void MirrorExpandedView::appear() {
    manager_.startSession();
}

void MirrorExpandedView::disappear() {
    manager_.stopSession();
}

void MirrorExpandedView::toggleMirrored() {
    manager_.isMirrored = !manager_.isMirrored;
}

void MirrorExpandedView::openSystemSettings() {
    platform_.workspace().open(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Camera");
}

} // namespace orvelle
