#pragma once

#include "Platform/Linux/MprisPlayer.h"
#include "Platform/UrlData.h"

#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <string>

namespace orvelle {

/// The covers of what the session's players play. The now-playing service and the scripts read them
/// at about the same time, so that each is fetched once a track for both. Any thread but the main
/// one for what reads.
class MprisCovers : public UrlData {
public:
    static constexpr std::size_t largest = 20 << 20; ///< bytes of the image file

    explicit MprisCovers(UrlData& urls) : urls_(urls) {}

    /// The cover of the track.
    std::optional<SharedBytes> read(const MprisPlayer::Track& track, const std::stop_token& stop);
    /// Somebody is told the address of the track's cover, and may read it.
    void name(const MprisPlayer::Track& track);
    /// The cover of the track that was named with this address last; without such a track what is
    /// there now.
    std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                    std::stop_token stop) override;

private:
    /// Of a track, since players write one cover after another to the same file.
    struct Cover {
        std::string url;
        std::string id;
        std::string title;
        bool isBeingRead = false;
        bool isRead = false;
        std::optional<SharedBytes> bytes;
    };
    /// Of what plays, and of what played before it in another player.
    static constexpr std::size_t keptCovers = 2;

    std::shared_ptr<Cover> coverOf(const MprisPlayer::Track& track);
    std::optional<SharedBytes> bytesOf(Cover& cover, const std::stop_token& stop);

    UrlData& urls_;
    std::mutex mutex_;
    std::condition_variable_any read_;
    std::list<std::shared_ptr<Cover>> covers_; ///< the last to be asked for first
};

} // namespace orvelle
