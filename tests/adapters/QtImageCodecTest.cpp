#include "Platform/Qt/QtImageCodec.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace orvelle {
namespace {

SharedBytes file(QSize size, const char* format) {
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(QColor(200, 30, 60));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return SharedBytes(buffer.data().toStdString());
}

class QtImageCodecTest : public testing::Test {
protected:
    std::optional<Image> decode(const SharedBytes& bytes) { return codec.decode(bytes, 100); }
    QtImageCodec codec;
};

TEST_F(QtImageCodecTest, APictureKeepsItsColours) {
    const auto image = decode(file({30, 20}, "PNG"));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width(), 30);
    EXPECT_EQ(image->height(), 20);
    EXPECT_EQ(image->colorAt(15, 10), (Color{200 / 255.0, 30 / 255.0, 60 / 255.0, 1}));
    EXPECT_TRUE(decode(file({30, 20}, "JPG")));
    EXPECT_TRUE(decode(file({30, 20}, "BMP")));
}

TEST_F(QtImageCodecTest, ALargePictureIsScaledDownInProportion) {
    const auto image = decode(file({1000, 500}, "PNG"));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width(), 100);
    EXPECT_EQ(image->height(), 50);
    const auto narrow = decode(file({1000, 1}, "PNG"));
    ASSERT_TRUE(narrow);
    EXPECT_EQ(narrow->height(), 1);
}

TEST_F(QtImageCodecTest, WhatIsNoPictureGivesNone) {
    EXPECT_FALSE(decode(SharedBytes()));
    EXPECT_FALSE(decode(SharedBytes("not an image")));
    EXPECT_FALSE(decode(SharedBytes(std::string(1 << 20, '\0'))));
    EXPECT_FALSE(decode(SharedBytes("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" "
                                    "height=\"9\"><rect width=\"9\" height=\"9\"/></svg>")));
}

TEST_F(QtImageCodecTest, ACutFileDoesNoHarm) {
    const auto whole = std::string(file({300, 300}, "PNG").view());
    for (const std::size_t length : {std::size_t{8}, std::size_t{40}, whole.size() / 2})
        decode(SharedBytes(whole.substr(0, length)));
    EXPECT_FALSE(decode(SharedBytes(whole.substr(0, 40))));
}

TEST_F(QtImageCodecTest, APictureThatWouldUnfoldToTooMuchIsRefused) {
    auto header = std::string(file({1, 1}, "BMP").view());
    const auto put = [&](std::size_t at, std::uint32_t value) {
        for (std::size_t byte = 0; byte < 4; ++byte)
            header[at + byte] = static_cast<char>(value >> (8 * byte));
    };
    put(18, 60'000); // width
    put(22, 60'000); // height
    EXPECT_FALSE(decode(SharedBytes(header)));
}

} // namespace
} // namespace orvelle
