#include "Platform/Linux/MprisCovers.h"

#include <algorithm>
#include <utility>

namespace orvelle {

std::shared_ptr<MprisCovers::Cover> MprisCovers::coverOf(const MprisPlayer::Track& track) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(covers_.begin(), covers_.end(), [&](const auto& cover) {
        return cover->url == track.artUrl && cover->id == track.id && cover->title == track.title;
    });
    if (found != covers_.end())
        covers_.splice(covers_.begin(), covers_, found);
    else
        covers_.push_front(std::make_shared<Cover>(
            Cover{.url = track.artUrl, .id = track.id, .title = track.title, .bytes = {}}));
    if (covers_.size() > keptCovers)
        covers_.pop_back();
    return covers_.front();
}

void MprisCovers::name(const MprisPlayer::Track& track) {
    coverOf(track);
}

std::optional<SharedBytes> MprisCovers::read(const MprisPlayer::Track& track,
                                             const std::stop_token& stop) {
    return bytesOf(*coverOf(track), stop);
}

std::optional<SharedBytes> MprisCovers::read(const std::string& url, std::size_t limit,
                                             std::stop_token stop) {
    std::unique_lock lock(mutex_);
    const auto found = std::find_if(covers_.begin(), covers_.end(),
                                    [&](const auto& cover) { return cover->url == url; });
    const auto cover = found == covers_.end() ? nullptr : *found;
    lock.unlock();
    if (!cover)
        return urls_.read(url, limit, std::move(stop));
    auto bytes = bytesOf(*cover, stop);
    return bytes && bytes->view().size() > limit ? std::nullopt : bytes;
}

std::optional<SharedBytes> MprisCovers::bytesOf(Cover& cover, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    if (!read_.wait(lock, stop, [&] { return !cover.isBeingRead; }))
        return std::nullopt;
    if (cover.isRead)
        return cover.bytes;
    cover.isBeingRead = true;
    lock.unlock();
    auto bytes = urls_.read(cover.url, largest, stop);
    lock.lock();
    cover.isBeingRead = false;
    cover.isRead = !stop.stop_requested(); // of a reading that was stopped nothing is known
    cover.bytes = std::move(bytes);
    read_.notify_all();
    return cover.bytes;
}

} // namespace orvelle
