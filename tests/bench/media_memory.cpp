// Ten thousand tracks with covers, given in turn as bytes, as files and as addresses in the web,
// and what they leave behind: fails when memory grows or a descriptor stays open.

#include "Features/Media/MediaManager.h"
#include "Features/Media/MediaScripts.h"
#include "Platform/Qt/QtImageCodec.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Qt/QtUrlData.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <malloc.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <mutex>

using namespace orvelle;

namespace {

constexpr int tracks = 10'000;
constexpr int warmUp = 501;          // as the last one a track whose cover needs no connection
constexpr long allowedGrowth = 2048; // kB

/// Has one line for whoever asks what plays.
class Player : public ScriptExecutor {
public:
    void say(std::string line) {
        const std::lock_guard lock(mutex_);
        line_ = std::move(line);
    }
    ScriptOutcome execute(const std::string& source) override {
        const std::lock_guard lock(mutex_);
        if (source != MediaScripts::spotifyRead)
            return ScriptNotMade{};
        return ScriptResult{.stringValue = line_, .data = {}};
    }

private:
    std::mutex mutex_;
    std::string line_; ///< guarded by the mutex
};

/// The simulated machine with a real loop, its threads, real addresses and real decoding.
class Machine : public SimulatedPlatform {
public:
    Player player;
    QtImageCodec codec;
    QtUrlData urls;
    QtRunLoop loop; ///< dies first: its threads use the others
    RunLoop& runLoop() override { return loop; }
    ImageCodec& imageCodec() override { return codec; }
    ScriptExecutor& scriptExecutor() override { return player; }
    UrlData& urlData() override { return urls; }
};

QByteArray cover(int index) {
    QImage picture(300, 300, QImage::Format_RGB32);
    for (int row = 0; row < picture.height(); ++row)
        for (int column = 0; column < picture.width(); ++column)
            picture.setPixel(column, row, qRgb(row, column ^ row, index & 255));
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, "PNG");
    return file.data();
}

/// A web with one picture at every address.
class CoverServer : public QTcpServer {
public:
    CoverServer() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            auto* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                if (!socket->readAll().endsWith("\r\n\r\n"))
                    return;
                socket->write("HTTP/1.1 200 OK\r\nContent-Length: " +
                              QByteArray::number(picture.size()) + "\r\n\r\n" + picture);
                socket->disconnectFromHost();
            });
        });
    }
    QByteArray picture;
};

/// Lets one track after the other play on the machine.
class Tracks {
public:
    explicit Tracks(Machine& machine) : machine_(machine) {
        machine_.runningApplicationsPort.running = {std::string(MediaScripts::spotify)};
    }

    void play(int index, const std::string& title) {
        const auto picture = cover(index);
        auto& info = machine_.nowPlayingPort.info.emplace();
        if (index % 3 == 0)
            info = {{std::string(NowPlayingKey::title), title},
                    {std::string(NowPlayingKey::playbackRate), 1.0},
                    {std::string(NowPlayingKey::artworkData), SharedBytes(picture.toStdString())}};
        else
            machine_.player.say(title + "||Artist||Album||180||1||true||" +
                                (index % 3 == 1 ? fileWith(picture) : addressOf(picture, index)));
        machine_.nowPlayingPort.notify(NowPlayingNotification::infoDidChange);
    }

private:
    std::string fileWith(const QByteArray& picture) {
        const auto path = folder_.filePath(QStringLiteral("cover.png")).toStdString();
        std::ofstream(path, std::ios::binary).write(picture.data(), picture.size());
        return "file://" + path;
    }
    std::string addressOf(const QByteArray& picture, int index) {
        web_.picture = picture;
        return "http://127.0.0.1:" + std::to_string(web_.serverPort()) + "/" +
               std::to_string(index);
    }

    Machine& machine_;
    QTemporaryDir folder_;
    CoverServer web_;
};

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
    Tracks player(machine);
    manager.start();
    long memory = 0;
    std::ptrdiff_t descriptors = 0;
    for (int index = 0; index < tracks; ++index) {
        const auto title = "Track " + std::to_string(index);
        player.play(index, title);
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
