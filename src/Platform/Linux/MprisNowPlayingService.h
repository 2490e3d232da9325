#pragma once

#include "Platform/Linux/MprisCovers.h"
#include "Platform/Linux/MprisPlayers.h"
#include "Platform/NowPlayingService.h"

#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace orvelle {

/// What the session's media players play, in the words of the now-playing service. When they have
/// stopped or gone, that is the last track, at rest where it stood.
class MprisNowPlayingService : public NowPlayingService {
public:
    MprisNowPlayingService(RunLoop& runLoop, MprisPlayers& players, MprisCovers& covers);
    ~MprisNowPlayingService() override { stopReading_.request_stop(); }

    std::variant<NowPlayingFunctions, LoadFailure> load(const std::string& path) override;
    Subscription observe(std::string_view notification, std::function<void()> handler) override;

private:
    /// The cover of one track. It stays while the next one is read from the same address.
    struct Artwork {
        MprisPlayer::Track track;
        SharedBytes bytes;
    };

    void getNowPlayingInfo(const std::function<void(const std::optional<NowPlayingInfo>&)>& answer);
    NowPlayingInfo describe(const MprisPlayer& player) const;
    void sendCommand(std::uint32_t command);
    void playersChanged();
    /// Keeps what is shown, and lets it stand still when nothing is shown any more.
    void keepLast();
    void wantArtwork(const MprisPlayer::Track& track);
    void readArtwork();

    RunLoop& runLoop_;
    MprisPlayers& players_;
    MprisCovers& covers_;
    std::optional<MprisPlayer> last_; ///< the player as it was when it was shown last
    QString currentName_;             ///< as last told
    bool wasPlaying_ = false;
    Artwork artwork_;
    std::map<std::string, Event<>, std::less<>> events_;
    Subscription following_;
    Subscription watching_;
    Subscription reading_;         ///< one cover at a time, however often the track changes
    std::stop_source stopReading_; ///< of that one
};

} // namespace orvelle
