#pragma once

#include "Platform/Linux/MprisPlayers.h"
#include "Platform/Linux/RunningPrograms.h"
#include "Platform/Linux/X11ClientWindows.h"

namespace orvelle {

/// Media players come to the front by themselves when they can; for one that cannot, and for any
/// other program, its window is brought.
class MprisRunningPrograms : public RunningPrograms {
public:
    using ActivateWindow = std::function<bool(const X11::Program&)>;

    explicit MprisRunningPrograms(MprisPlayers& players,
                                  ActivateWindow activateWindow = &X11::activateWindowOf)
        : players_(players), activateWindow_(std::move(activateWindow)) {}

    bool isRunning(const std::vector<std::string>& identifiers) const override {
        return find(identifiers) != nullptr;
    }
    void bringToFront(const Wanted& wanted, std::function<void()> failed) override;

private:
    /// The one that is shown comes first.
    const MprisPlayer* find(const std::vector<std::string>& identifiers) const;

    MprisPlayers& players_;
    ActivateWindow activateWindow_;
    Lifetime lifetime_;
};

} // namespace orvelle
