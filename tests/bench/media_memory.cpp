// Ten thousand tracks with covers, and what they leave behind: fails when memory grows or a
// descriptor stays open.

#include "Features/Media/MediaManager.h"
#include "Platform/Qt/QtImageCodec.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>

#include <malloc.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

using namespace orvelle;

namespace {

constexpr int tracks = 10'000;
constexpr int warmUp = 500;
constexpr long allowedGrowth = 2048; // kB

/// The simulated machine with a real loop, its threads, and real decoding.
class Machine : public SimulatedPlatform {
public:
    QtRunLoop loop;
    QtImageCodec codec;
    RunLoop& runLoop() override { return loop; }
    ImageCodec& imageCodec() override { return codec; }
};

SharedBytes cover(int index) {
    QImage picture(300, 300, QImage::Format_RGB32);
    for (int row = 0; row < picture.height(); ++row)
        for (int column = 0; column < picture.width(); ++column)
            picture.setPixel(column, row, qRgb(row, column ^ row, index & 255));
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, "PNG");
    return SharedBytes(file.data().toStdString());
}

/// Kilobytes in main memory.
long residentMemory() {
    malloc_trim(0);
    std::ifstream status("/proc/self/statm");
    long pages = 0;
    status >> pages >> pages;
    return pages * 4;
}

auto openDescriptors() {
    const std::filesystem::directory_iterator entries("/proc/self/fd");
    return std::distance(begin(entries), end(entries));
}

} // namespace

int main(int count, char** values) {
    const QCoreApplication application(count, values);
    Machine machine;
    MediaManager manager(machine);
    manager.start();
    long memory = 0;
    std::ptrdiff_t descriptors = 0;
    for (int index = 0; index < tracks; ++index) {
        const auto title = "Track " + std::to_string(index);
        machine.nowPlayingPort.info =
            NowPlayingInfo{{std::string(NowPlayingKey::title), title},
                           {std::string(NowPlayingKey::playbackRate), 1.0},
                           {std::string(NowPlayingKey::artworkData), cover(index)}};
        machine.nowPlayingPort.notify(NowPlayingNotification::infoDidChange);
        while (manager.currentMedia->title != title || !manager.currentMedia->artwork)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        machine.logPort.lines.clear(); // the simulated log forgets nothing
        if (index == warmUp) {
            memory = residentMemory();
            descriptors = openDescriptors();
        }
    }
    const long growth = residentMemory() - memory;
    const auto left = openDescriptors() - descriptors;
    std::printf("%d tracks with covers: memory %+ld kB, descriptors %+td\n", tracks, growth, left);
    return growth <= allowedGrowth && left == 0 ? 0 : 1;
}
