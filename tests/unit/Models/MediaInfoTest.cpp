#include "Models/MediaInfo.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

MediaInfo track() {
    MediaInfo info;
    info.title = "Title";
    info.artist = "Artist";
    info.album = "Album";
    info.isPlaying = true;
    info.duration = 200;
    info.elapsed = 50;
    info.appBundleIdentifier = "org.example.player";
    info.appName = "Player";
    return info;
}

template <class Change>
MediaInfo with(Change change) {
    auto info = track();
    change(info);
    return info;
}

TEST(MediaInfo, DiffersInEachOfItsFieldsAlone) {
    EXPECT_EQ(track(), track());
    EXPECT_NE(track(), with([](auto& info) { info.title = "Other"; }));
    EXPECT_NE(track(), with([](auto& info) { info.artist = "Other"; }));
    EXPECT_NE(track(), with([](auto& info) { info.album = "Other"; }));
    EXPECT_NE(track(), with([](auto& info) { info.isPlaying = false; }));
    EXPECT_NE(track(), with([](auto& info) { info.duration = 201; }));
    EXPECT_NE(track(), with([](auto& info) { info.elapsed = 51; }));
    EXPECT_NE(track(), with([](auto& info) { info.appBundleIdentifier.reset(); }));
}

TEST(MediaInfo, ACoverThatArrivesLaterMakesNoOtherTrack) {
    EXPECT_EQ(track(), with([](auto& info) { info.artwork.emplace(); }));
    EXPECT_EQ(track(), with([](auto& info) { info.appName = "Other"; }));
}

TEST(MediaInfo, WithNothingKnownNothingPlaysAtItsBeginning) {
    const MediaInfo info;
    EXPECT_FALSE(info.isPlaying);
    EXPECT_EQ(info.formattedElapsed(), "0:00");
    EXPECT_EQ(info.formattedDuration(), "0:00");
}

TEST(MediaInfo, TimesAreMinutesAndWholeSecondsOfTwoDigits) {
    EXPECT_EQ(with([](auto& info) { info.elapsed = 125.9; }).formattedElapsed(), "2:05");
    EXPECT_EQ(with([](auto& info) { info.duration = 3600; }).formattedDuration(), "60:00");
    EXPECT_EQ(with([](auto& info) { info.elapsed = 59.99; }).formattedElapsed(), "0:59");
}

} // namespace
} // namespace orvelle
