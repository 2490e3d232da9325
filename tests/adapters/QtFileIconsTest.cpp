#include "Platform/Qt/QtFileIcons.h"

#include "Platform/Qt/FileMimeData.h"
#include "Platform/Qt/IconTheme.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

bool isDrawn(const Image& picture) {
    for (int row = 0; row < picture.height(); ++row)
        for (int column = 0; column < picture.width(); ++column)
            if (picture.colorAt(column, row)->alpha > 0.5)
                return true;
    return false;
}

TEST(QtFileIcons, ANameTellsTheType) {
    const QtFileIcons icons;
    EXPECT_EQ(icons.type("a.pdf"), "application/pdf");
    EXPECT_EQ(icons.type("A.PNG"), "image/png");
    EXPECT_EQ(icons.type("archive.tar.gz"), "application/x-compressed-tar");
    EXPECT_FALSE(icons.type("a.no-such-extension"));
    EXPECT_FALSE(icons.type("noextension"));
}

TEST(QtFileIcons, EveryFileHasAPictureOfTheAskedSize) {
    const QtFileIcons icons;
    for (const char* name : {"a.pdf", "b.png", "c.mp3", "unknown", "d.zip"})
        for (const int side : {40, 80}) {
            const auto picture = icons.picture(icons.icon(name, false), side);
            if (!IconTheme::isInstalled("Adwaita"))
                GTEST_SKIP() << "no icon theme is installed";
            EXPECT_EQ(picture.width(), side) << name;
            EXPECT_EQ(picture.height(), side) << name;
            EXPECT_TRUE(isDrawn(picture)) << name;
        }
    EXPECT_NE(icons.icon("a.pdf", true), icons.icon("a.pdf", false));
}

TEST(QtFileIcons, ASideOfNothingHasNoPixels) {
    EXPECT_EQ(QtFileIcons().picture("text-x-generic", 0).pixels(), nullptr);
}

TEST(IconTheme, IsTheOneThatTheUserChoseIfItIsThere) {
    const TemporaryFolder home;
    const auto configHome = QString::fromStdString(home.path());
    const auto installed = [](const QString& name) { return name == "Mine" || name == "Adwaita"; };
    EXPECT_EQ(IconTheme::choose(configHome, installed), "Adwaita");
    home.write("gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Mine\n");
    EXPECT_EQ(IconTheme::choose(configHome, installed), "Mine");
    home.write("gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Not installed\n");
    EXPECT_EQ(IconTheme::choose(configHome, installed), "Adwaita");
    home.write("kdeglobals", "[Icons]\nTheme=Mine\n");
    EXPECT_EQ(IconTheme::choose(configHome, installed), "Mine");
    EXPECT_EQ(IconTheme::choose(configHome, [](const QString&) { return false; }), "hicolor");
}

TEST(IconTheme, ANameIsNoPath) {
    EXPECT_FALSE(IconTheme::isInstalled(""));
    EXPECT_FALSE(IconTheme::isInstalled("../icons/Adwaita"));
    EXPECT_FALSE(IconTheme::isInstalled("no such theme"));
}

TEST(FileMimeData, SpeaksToProgramsAndFileManagers) {
    const auto data = fileMimeData({"file:///tmp/a%20b.txt", "file:///tmp/c"});
    EXPECT_EQ(data->data("text/uri-list"), "file:///tmp/a%20b.txt\r\nfile:///tmp/c\r\n");
    EXPECT_EQ(data->data("x-special/gnome-copied-files"),
              "copy\nfile:///tmp/a%20b.txt\nfile:///tmp/c");
    EXPECT_EQ(data->text(), "/tmp/a b.txt\n/tmp/c");
}

} // namespace
} // namespace orvelle
