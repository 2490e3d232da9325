#include "Platform/Simulated/SimulatedMedia.h"

namespace orvelle {

std::variant<NowPlayingFunctions, NowPlayingService::LoadFailure>
SimulatedNowPlayingService::load(const std::string& path) {
    loadedPath = path;
    if (loadFailure)
        return *loadFailure;
    NowPlayingFunctions functions{
        .getNowPlayingInfo =
            [this](auto give) {
                ++infoRequests;
                if (onRead)
                    onRead(*this);
                answer([give, info = info] { give(info); });
            },
        .registerForNotifications = [this] { registrations.push_back(true); },
        .unregisterForNotifications = [this] { registrations.push_back(false); },
        .sendCommand =
            [this](std::uint32_t command) {
                commands.push_back(command);
                if (onCommand)
                    onCommand(*this, command);
            },
        .getIsPlaying =
            [this](auto give) {
                ++isPlayingRequests;
                answer([give, isPlaying = isPlaying] { give(isPlaying); });
            },
    };
    if (onLoad)
        onLoad(functions);
    return functions;
}

void SimulatedNowPlayingService::answer(std::function<void()> give) {
    if (holdsAnswers)
        held_.push_back(std::move(give));
    else
        give();
}

void SimulatedNowPlayingService::deliverAnswers() {
    for (const auto& give : std::exchange(held_, {}))
        give();
}

} // namespace orvelle
