#include "Platform/Simulated/DemoMedia.h"

#include "Foundation/Color.h"
#include "Platform/RunLoop.h"
#include "Platform/Simulated/SimulatedMedia.h"

#include <cmath>

namespace orvelle::DemoMachine {

namespace {

struct Track {
    const char* title;
    const char* artist;
    const char* album;
    Seconds duration;
    double hue; ///< of the cover
};

constexpr Track tracks[] = {
    {"Morning over the Fjord", "The Northern Lines", "Slow Weather", 254, 0.58},
    {"Paper Lanterns", "Mira Vale", "Evening Streets", 198, 0.04},
    {"A Very Long Walk along the Old Harbour Wall in the Rain", "Quartet for the End of the Week",
     "Field Recordings", 611, 0.38},
};
constexpr int trackCount = std::size(tracks);

void append(std::string& bytes, std::uint32_t value, int count) {
    for (int index = 0; index < count; ++index)
        bytes += static_cast<char>(value >> (8 * index));
}

/// A BMP file, which needs no library: a sky of the hue over darker waves.
std::string cover(double hue) {
    constexpr int side = 160;
    constexpr std::uint32_t headerSize = 54;
    constexpr std::uint32_t bodySize = side * side * 3;
    std::string bytes = "BM";
    append(bytes, headerSize + bodySize, 4);
    append(bytes, 0, 4);
    append(bytes, headerSize, 4);
    append(bytes, 40, 4); // the size of what follows up to the pixels
    append(bytes, side, 4);
    append(bytes, side, 4);
    append(bytes, 1, 2);
    append(bytes, 24, 2);
    append(bytes, 0, 4);
    append(bytes, bodySize, 4);
    for (int field = 0; field < 4; ++field)
        append(bytes, 0, 4);
    for (int row = 0; row < side; ++row) // from the bottom
        for (int column = 0; column < side; ++column) {
            const double height = static_cast<double>(row) / side;
            const double wave = 0.32 + 0.09 * std::sin(column * 0.07 + hue * 20);
            const double second = wave - 0.14 + 0.05 * std::sin(column * 0.11);
            const double brightness = height < second ? 0.3 : height < wave ? 0.5 : 0.95;
            const auto color = Color::hsb(hue + 0.1 * height, 0.75 - 0.3 * height, brightness);
            for (const double component : {color.blue, color.green, color.red})
                bytes += static_cast<char>(std::lround(component * 255));
        }
    return bytes;
}

class Player {
public:
    explicit Player(RunLoop& runLoop) : runLoop_(runLoop), since_(runLoop.now()) {
        for (const auto& track : tracks)
            covers_.emplace_back(cover(track.hue));
    }

    void tell(SimulatedNowPlayingService& service) {
        if (position() >= track().duration)
            go(1);
        service.isPlaying = isPlaying_;
        service.info = NowPlayingInfo{
            {std::string(NowPlayingKey::title), std::string(track().title)},
            {std::string(NowPlayingKey::artist), std::string(track().artist)},
            {std::string(NowPlayingKey::album), std::string(track().album)},
            {std::string(NowPlayingKey::duration), track().duration},
            {std::string(NowPlayingKey::elapsedTime), position()},
            {std::string(NowPlayingKey::playbackRate), isPlaying_ ? 1.0 : 0.0},
            {std::string(NowPlayingKey::bundleIdentifier), std::string("com.orvelle.demo")},
            {std::string(NowPlayingKey::displayName), std::string("Demo Player")},
            {std::string(NowPlayingKey::artworkData), covers_[static_cast<std::size_t>(index_)]}};
    }
    void obey(std::uint32_t command) {
        if (command == NowPlayingService::nextTrack)
            go(1);
        else if (command == NowPlayingService::previousTrack)
            go(trackCount - 1);
        else
            setPlaying(!isPlaying_);
    }

private:
    const Track& track() const { return tracks[index_]; }
    Seconds position() const { return isPlaying_ ? before_ + (runLoop_.now() - since_) : before_; }
    void setPlaying(bool isPlaying) {
        before_ = position();
        since_ = runLoop_.now();
        isPlaying_ = isPlaying;
    }
    void go(int steps) {
        index_ = (index_ + steps) % trackCount;
        before_ = 0;
        since_ = runLoop_.now();
    }

    RunLoop& runLoop_;
    std::vector<SharedBytes> covers_;
    int index_ = 0;
    bool isPlaying_ = true;
    Seconds before_ = 72; ///< the position when it last began to play
    Date since_;
};

} // namespace

void script(SimulatedNowPlayingService& service, RunLoop& runLoop) {
    const auto player = std::make_shared<Player>(runLoop);
    service.onRead = [player](SimulatedNowPlayingService& asked) { player->tell(asked); };
    service.onCommand = [player](SimulatedNowPlayingService&, std::uint32_t command) {
        player->obey(command);
    };
}

} // namespace orvelle::DemoMachine
