#include "Platform/Linux/PulseAudioHardware.h"

#include "Platform/Qt/QtRunLoop.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PulseServer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvelle {
namespace {

class PulseAudioHardwareTest : public testing::Test {
protected:
    /// None while no device of this name is known.
    std::optional<AudioDeviceID> device(const std::string& name) {
        const auto devices = audio.devices().value();
        for (const auto id : devices)
            if (audio.name(id) == name)
                return id;
        return std::nullopt;
    }
    AudioDeviceID awaitDevice(const std::string& name) {
        EXPECT_TRUE(waitUntil([&] { return device(name).has_value(); })) << name;
        return device(name).value_or(0);
    }
    float volume(AudioDeviceID id) { return audio.volume(id).value_or(-1); }
    bool isAbout(AudioDeviceID id, float expected) {
        return std::abs(volume(id) - expected) < 0.005F;
    }
    void setVolume(const char* sink, const char* level) {
        server.control(
            {QStringLiteral("set-sink-volume"), QLatin1String(sink), QLatin1String(level)});
    }
    QString volumeAtServer(const char* sink) {
        return server.control({QStringLiteral("get-sink-volume"), QLatin1String(sink)});
    }

    PulseServer server;
    QtRunLoop loop;
    PulseAudioHardware audio{loop, server.address()};
};

TEST_F(PulseAudioHardwareTest, TheOutputsAreListedWithTheirNames) {
    const auto speakers = awaitDevice("Speakers");
    const auto headphones = awaitDevice("Headphones");
    EXPECT_EQ(audio.devices(), (std::vector<AudioDeviceID>{speakers, headphones}));
    EXPECT_EQ(audio.outputStreamCount(speakers), 1u);
    EXPECT_EQ(audio.defaultOutputDevice(), speakers);
}

TEST_F(PulseAudioHardwareTest, TheDefaultDeviceHasItsNumberBeforeTheServerHasAnswered) {
    const auto early = audio.defaultOutputDevice();
    ASSERT_TRUE(early);
    EXPECT_FALSE(audio.volume(*early)) << "nothing is known yet";
    int events = 0;
    const auto listening = audio.addVolumeListener(*early, [&] { ++events; });
    EXPECT_EQ(awaitDevice("Speakers"), *early);
    EXPECT_EQ(events, 1);
    EXPECT_FLOAT_EQ(volume(*early), 1);
}

TEST_F(PulseAudioHardwareTest, AVolumeThatSomebodyElseSetsIsHeard) {
    const auto speakers = awaitDevice("Speakers");
    const auto headphones = awaitDevice("Headphones");
    int events = 0;
    int otherEvents = 0;
    auto listening = audio.addVolumeListener(speakers, [&] { ++events; });
    const auto listeningToOther = audio.addVolumeListener(headphones, [&] { ++otherEvents; });
    setVolume("speakers", "31%");
    EXPECT_TRUE(waitUntil([&] { return isAbout(speakers, 0.31F); }));
    EXPECT_EQ(events, 1);
    EXPECT_EQ(otherEvents, 0);
    listening.reset();
    setVolume("speakers", "40%");
    EXPECT_TRUE(waitUntil([&] { return isAbout(speakers, 0.40F); }));
    EXPECT_EQ(events, 1);
}

TEST_F(PulseAudioHardwareTest, TheVolumeIsWrittenAndTheBalanceKept) {
    const auto speakers = awaitDevice("Speakers");
    server.control({QStringLiteral("set-sink-volume"), QStringLiteral("speakers"),
                    QStringLiteral("80%"), QStringLiteral("40%")});
    ASSERT_TRUE(waitUntil([&] { return isAbout(speakers, 0.8F); }));
    audio.setVolume(speakers, 0.5F);
    ASSERT_TRUE(waitUntil([&] { return isAbout(speakers, 0.5F); }));
    const auto told = volumeAtServer("speakers");
    EXPECT_TRUE(told.contains(QStringLiteral(" 50%"))) << told.toStdString();
    EXPECT_TRUE(told.contains(QStringLiteral(" 25%"))) << told.toStdString();
    EXPECT_TRUE(volumeAtServer("headphones").contains(QStringLiteral("100%")));
}

TEST_F(PulseAudioHardwareTest, OfManyWritesInARowTheLastHolds) {
    const auto speakers = awaitDevice("Speakers");
    for (int step = 1; step <= 100; ++step)
        audio.setVolume(speakers, static_cast<float>(step) / 200);
    EXPECT_TRUE(waitUntil([&] { return isAbout(speakers, 0.5F); }));
    EXPECT_TRUE(volumeAtServer("speakers").contains(QStringLiteral(" 50%")));
}

TEST_F(PulseAudioHardwareTest, AVolumeAboveTheFullOneReadsAs1) {
    const auto speakers = awaitDevice("Speakers");
    setVolume("speakers", "0%");
    ASSERT_TRUE(waitUntil([&] { return volume(speakers) == 0; }));
    setVolume("speakers", "150%");
    EXPECT_TRUE(waitUntil([&] { return volume(speakers) == 1; }));
}

TEST_F(PulseAudioHardwareTest, TheOutputIsSwitched) {
    const auto headphones = awaitDevice("Headphones");
    audio.setDefaultOutputDevice(headphones);
    EXPECT_TRUE(waitUntil([&] { return audio.defaultOutputDevice() == headphones; }));
    EXPECT_EQ(server.control({QStringLiteral("get-default-sink")}), QStringLiteral("headphones"));
}

TEST_F(PulseAudioHardwareTest, WhoListensToTheOutputInUseFollowsIt) {
    const auto early = audio.defaultOutputDevice().value();
    int events = 0;
    auto listening = audio.addVolumeListener(early, [&] { ++events; });
    const auto speakers = awaitDevice("Speakers");
    const auto headphones = awaitDevice("Headphones");
    setVolume("headphones", "60%");
    ASSERT_TRUE(waitUntil([&] { return isAbout(headphones, 0.6F); }));
    int others = 0;
    const auto listeningToOther = audio.addVolumeListener(headphones, [&] { ++others; });
    events = 0;
    server.control({QStringLiteral("set-default-sink"), QStringLiteral("headphones")});
    ASSERT_TRUE(waitUntil([&] { return audio.defaultOutputDevice() == headphones; }));
    EXPECT_EQ(events, 1) << "the output in use has another volume";
    EXPECT_EQ(others, 0);
    setVolume("headphones", "20%");
    ASSERT_TRUE(waitUntil([&] { return isAbout(headphones, 0.2F); }));
    EXPECT_EQ(events, 2);
    EXPECT_EQ(others, 1);
    setVolume("speakers", "10%");
    ASSERT_TRUE(waitUntil([&] { return isAbout(speakers, 0.1F); }));
    EXPECT_EQ(events, 2) << "the output before is not followed any more";
    listening.reset();
    setVolume("headphones", "30%");
    ASSERT_TRUE(waitUntil([&] { return isAbout(headphones, 0.3F); }));
    EXPECT_EQ(events, 2);
}

TEST_F(PulseAudioHardwareTest, AnOutputThatIsPluggedInAppearsAndLeavesAgain) {
    awaitDevice("Speakers");
    const auto module =
        server.control({QStringLiteral("load-module"), QStringLiteral("module-null-sink"),
                        QStringLiteral("sink_name=radio"),
                        QStringLiteral("sink_properties=device.description=Radio")});
    const auto radio = awaitDevice("Radio");
    server.control({QStringLiteral("unload-module"), module});
    EXPECT_TRUE(waitUntil([&] { return !device("Radio"); }));
    EXPECT_FALSE(audio.volume(radio));
    EXPECT_FALSE(audio.outputStreamCount(radio));
    audio.setVolume(radio, 0.1F);
    audio.setDefaultOutputDevice(radio);
    EXPECT_TRUE(volumeAtServer("speakers").contains(QStringLiteral("100%")));
}

TEST_F(PulseAudioHardwareTest, AServerThatRestartsIsFoundAgainAndListenersStay) {
    const auto speakers = awaitDevice("Speakers");
    int events = 0;
    const auto listening = audio.addVolumeListener(speakers, [&] { ++events; });
    server.stop();
    ASSERT_TRUE(waitUntil([&] { return audio.devices()->empty(); }));
    EXPECT_EQ(events, 1);
    EXPECT_FALSE(audio.volume(speakers));
    EXPECT_EQ(audio.defaultOutputDevice(), speakers) << "the last one known";
    server.start();
    EXPECT_EQ(awaitDevice("Speakers"), speakers);
    const int before = events;
    setVolume("speakers", "20%");
    EXPECT_TRUE(waitUntil([&] { return isAbout(speakers, 0.2F); }));
    EXPECT_EQ(events, before + 1);
}

TEST_F(PulseAudioHardwareTest, WithoutAServerThereAreNoDevicesAndTheAnswersComeAtOnce) {
    server.stop();
    testing::internal::CaptureStderr();
    QElapsedTimer elapsed;
    elapsed.start();
    const auto output = audio.defaultOutputDevice().value();
    EXPECT_TRUE(audio.devices()->empty());
    EXPECT_FALSE(audio.volume(output));
    audio.setVolume(output, 1);
    audio.setDefaultOutputDevice(output);
    EXPECT_LT(elapsed.elapsed(), 10);
    const auto secondAttempt = std::chrono::milliseconds(700);
    EXPECT_FALSE(waitUntil([&] { return !audio.devices()->empty(); }, secondAttempt));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(PulseAudioHardwareTest, AServerThatHangsHoldsNothingUp) {
    const auto speakers = awaitDevice("Speakers");
    server.hang();
    QElapsedTimer elapsed;
    elapsed.start();
    audio.setVolume(speakers, 0.3F);
    EXPECT_FLOAT_EQ(volume(speakers), 1);
    {
        PulseAudioHardware other(loop, server.address());
        EXPECT_TRUE(other.devices()->empty());
    }
    EXPECT_LT(elapsed.elapsed(), 200) << "ending waits for no server";
    server.wakeUp();
    EXPECT_TRUE(waitUntil([&] { return isAbout(speakers, 0.3F); }));
}

} // namespace
} // namespace orvelle
