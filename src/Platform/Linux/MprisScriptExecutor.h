#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/Linux/KnownPlayers.h"
#include "Platform/Linux/MprisCovers.h"
#include "Platform/Qt/BackgroundWaits.h"
#include "Platform/ScriptExecutor.h"

namespace orvelle {

/// Answers the program's scripts for the known players by asking them over the bus: the reading of
/// the track, its cover, and the commands. What a player has no counterpart for is an error.
class MprisScriptExecutor : public ScriptExecutor {
public:
    static constexpr std::chrono::seconds answerBound{5};

    MprisScriptExecutor(BusProvider sessionBus, MprisCovers& covers);

    ScriptOutcome execute(const std::string& source) override;
    /// Scripts under way, and those to come, give an error. Any thread.
    void end() { waits_.end(); }

private:
    ScriptOutcome readTrack(const KnownPlayer& player, bool wantsArtwork);
    ScriptOutcome readArtwork(const KnownPlayer& player, bool wantsData);
    ScriptOutcome command(const KnownPlayer& player, const QString& method);
    QDBusMessage ask(const QDBusMessage& question);

    BusProvider bus_;
    MprisCovers& covers_;
    BackgroundWaits waits_;
};

} // namespace orvelle
