#include "Platform/Linux/MprisRunningPrograms.h"

#include <algorithm>

namespace orvelle {

namespace {

bool isOneOf(const MprisPlayer& player, const std::vector<std::string>& identifiers) {
    return std::any_of(identifiers.begin(), identifiers.end(), [&](const auto& identifier) {
        return identifier == player.bundleIdentifier() || identifier == player.desktopEntry;
    });
}

} // namespace

const MprisPlayer* MprisRunningPrograms::find(const std::vector<std::string>& identifiers) const {
    const auto* current = players_.current();
    if (current && isOneOf(*current, identifiers))
        return current;
    const auto& all = players_.all();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const auto& player) { return isOneOf(player, identifiers); });
    return found == all.end() ? nullptr : &*found;
}

void MprisRunningPrograms::bringToFront(const Wanted& wanted, std::function<void()> failed) {
    const auto* player = find(wanted.identifiers);
    const std::function<void(std::uint32_t)> bringWindow =
        lifetime_.guard([this, names = wanted.windowNames, failed](std::uint32_t processId) {
            if (!activateWindow_({processId, names}))
                failed();
        });
    if (!player)
        return bringWindow(0);
    const std::function<void()> askProcess = lifetime_.guard(
        [this, owner = player->owner, bringWindow] { players_.askProcess(owner, bringWindow); });
    if (!player->canRaise)
        return askProcess();
    players_.raise(*player, [askProcess](bool isRaised) {
        if (!isRaised)
            askProcess();
    });
}

} // namespace orvelle
