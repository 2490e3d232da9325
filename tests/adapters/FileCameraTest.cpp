#include "Platform/Linux/FileCamera.h"

#include "Platform/Linux/LinuxCameraService.h"
#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/OrdinaryUser.h"
#include "Support/TemporaryFolder.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace orvelle {
namespace {

/// Frames of one colour each, as YCbCr.
std::string y4m(const std::vector<std::array<unsigned char, 3>>& colors,
                const std::string& fields = "W4 H2 F15:1 C420jpeg") {
    std::string bytes = "YUV4MPEG2 " + fields + "\n";
    for (const auto& [y, u, v] : colors) {
        bytes += "FRAME\n" + std::string(8, static_cast<char>(y)) +
                 std::string(2, static_cast<char>(u)) + std::string(2, static_cast<char>(v));
    }
    return bytes;
}
constexpr std::array<unsigned char, 3> white{235, 128, 128};
constexpr std::array<unsigned char, 3> black{16, 128, 128};
constexpr std::array<unsigned char, 3> redPixel{81, 90, 240};

std::string jpeg(Qt::GlobalColor color) {
    QImage picture(16, 8, QImage::Format_RGB32);
    picture.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "JPG");
    return bytes.toStdString();
}

/// The camera's thread brings frames, the test waits for them.
class FileCameraTest : public testing::Test {
protected:
    std::unique_ptr<CameraSession> open(const std::string& bytes) {
        folder.write("camera", bytes);
        LinuxCameraService service(runLoop, {.file = folder / "camera", .devices = "/nowhere"});
        return service.makeSession(
            {.width = 480, .height = 360, .framesPerSecond = 200, .onFrame = [this](Image frame) {
                 const std::lock_guard lock(mutex);
                 frames.push_back(std::move(frame));
                 arrived.notify_all();
             }});
    }
    bool waitForFrames(std::size_t count) {
        std::unique_lock lock(mutex);
        return arrived.wait_for(lock, std::chrono::seconds(10),
                                [&] { return frames.size() >= count; });
    }
    /// "RGB" letters of the strong parts of each frame's first pixel.
    std::string colorsOf(std::size_t count) {
        const std::lock_guard lock(mutex);
        std::string text;
        for (std::size_t index = 0; index < count; ++index) {
            const auto color = frames[index].colorAt(0, 0).value_or(Color{});
            text += color.red > 0.5 && color.green > 0.5 ? 'w' : color.red > 0.5 ? 'r' : 'b';
        }
        return text;
    }

    TemporaryFolder folder;
    SimulatedRunLoop runLoop;
    std::mutex mutex;
    std::condition_variable arrived;
    std::vector<Image> frames;
};

TEST_F(FileCameraTest, ShowsTheFramesOfAY4mFileOverAndOver) {
    const auto camera = open(y4m({white, black, redPixel}));
    ASSERT_TRUE(camera);
    camera->startRunning();
    ASSERT_TRUE(waitForFrames(7));
    camera->stopRunning();
    EXPECT_EQ(colorsOf(7), "wbrwbrw");
    EXPECT_EQ(frames[0].width(), 4);
    EXPECT_EQ(frames[0].height(), 2);
}

TEST_F(FileCameraTest, ShowsTheFramesOfAnMjpegFile) {
    const auto camera = open(jpeg(Qt::white) + jpeg(Qt::red) + jpeg(Qt::black));
    camera->startRunning();
    ASSERT_TRUE(waitForFrames(4));
    camera->stopRunning();
    EXPECT_EQ(colorsOf(4), "wrbw");
    EXPECT_EQ(frames[0].width(), 16);
}

TEST_F(FileCameraTest, NoFrameComesAfterTheStop) {
    const auto camera = open(y4m({white}));
    camera->startRunning();
    ASSERT_TRUE(waitForFrames(1));
    camera->stopRunning();
    const auto count = frames.size();
    std::this_thread::yield();
    EXPECT_EQ(frames.size(), count);
    camera->startRunning();
    EXPECT_TRUE(waitForFrames(count + 1)) << "and it can start again";
}

TEST_F(FileCameraTest, ACutFileShowsItsWholeFrames) {
    auto bytes = y4m({white, black});
    bytes.resize(bytes.size() - 3);
    const auto camera = open(bytes);
    camera->startRunning();
    ASSERT_TRUE(waitForFrames(3));
    camera->stopRunning();
    EXPECT_EQ(colorsOf(3), "www");
}

TEST_F(FileCameraTest, AFileOfNoUseGivesNoFramesAndNoTrouble) {
    for (const auto& bytes :
         {std::string(), std::string("YUV4MPEG2 "), std::string("text"), y4m({}),
          y4m({white}, "W99999999 H99999999 C420"), y4m({white}, "W4"), y4m({white}, "W-4 H-2"),
          y4m({white}, "W4 H2 C420p10"), std::string("\xff\xd8\xff garbage")}) {
        const auto camera = open(bytes);
        camera->startRunning();
        camera->stopRunning();
        EXPECT_TRUE(frames.empty()) << bytes;
    }
}

TEST(LinuxCameraService, AFileNeedsNoPermission) {
    SimulatedRunLoop runLoop;
    const LinuxCameraService service(runLoop, {.file = "/nowhere/file", .devices = "/nowhere"});
    EXPECT_EQ(service.authorizationStatus(), CameraAuthorizationStatus::authorized);
}

TEST(LinuxCameraService, WithoutACameraThereIsNoSessionAndNoRefusal) {
    SimulatedRunLoop runLoop;
    TemporaryFolder devices;
    LinuxCameraService service(runLoop, {.file = {}, .devices = devices.path()});
    EXPECT_EQ(service.authorizationStatus(), CameraAuthorizationStatus::authorized);
    EXPECT_FALSE(service.makeSession({}));
}

TEST(LinuxCameraService, ADeviceThatMayNotBeOpenedIsARefusal) {
    SimulatedRunLoop runLoop;
    TemporaryFolder devices;
    devices.write("video0", "");
    const OrdinaryUser user(devices.path());
    std::filesystem::permissions(devices / "video0", std::filesystem::perms::none);
    LinuxCameraService service(runLoop, {.file = {}, .devices = devices.path()});
    EXPECT_EQ(service.authorizationStatus(), CameraAuthorizationStatus::denied);
    EXPECT_FALSE(service.makeSession({}));
}

TEST(LinuxCameraService, LoadsItsLibraryWhenACameraFirstStarts) {
    const auto isLoaded = [] {
        return fileBytes("/proc/self/maps").find("liborvelle-camera.so") != std::string::npos;
    };
    SimulatedRunLoop runLoop;
    TemporaryFolder devices;
    devices.write("video0", "");
    LinuxCameraService service(runLoop, {.file = {}, .devices = devices.path()});
    const auto session = service.makeSession(
        {.width = 480, .height = 360, .framesPerSecond = 15, .onFrame = [](const Image&) {}});
    ASSERT_TRUE(session);
    EXPECT_FALSE(isLoaded());
    std::thread([&] {
        session->startRunning();
        session->stopRunning();
    }).join();
    EXPECT_TRUE(isLoaded());
}

} // namespace
} // namespace orvelle
