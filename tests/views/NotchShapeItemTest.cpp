#include "Views/Qt/NotchShapeItem.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace orvelle {

class NotchShapeItemTest : public testing::Test {
protected:
    NotchShapeItemTest() {
        shape.setSize({100, 60});
        shape.setBottomCornerRadius(12);
        shape.setTopFlare(14);
        shape.setBodyInset(8);
    }
    QImage painted() {
        QImage image(100, 60, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        shape.paint(&painter);
        return image;
    }

    NotchShapeItem shape;
};

TEST_F(NotchShapeItemTest, theTopEdgeSpansTheItemAndTheBodyStandsIn) {
    const auto image = painted();
    EXPECT_EQ(qAlpha(image.pixel(50, 0)), 255);
    EXPECT_GT(qAlpha(image.pixel(3, 0)), 80);
    EXPECT_EQ(qAlpha(image.pixel(4, 30)), 0);
    EXPECT_EQ(qAlpha(image.pixel(9, 30)), 255);
}

TEST_F(NotchShapeItemTest, theLowerCornersAreRound) {
    const auto image = painted();
    EXPECT_EQ(qAlpha(image.pixel(9, 58)), 0);
    EXPECT_EQ(qAlpha(image.pixel(12, 55)), 255);
    EXPECT_EQ(qAlpha(image.pixel(90, 58)), 0);
    // 45 degrees along the arc, whose centre is 12 in from both sides.
    EXPECT_TRUE(shape.path().contains(QPointF(20 - 8.4, 48 + 8.4)));
    EXPECT_FALSE(shape.path().contains(QPointF(20 - 8.6, 48 + 8.6)));
}

TEST_F(NotchShapeItemTest, theStrokeLightensTheOutline) {
    const auto plain = painted();
    shape.setStroke({Qt::white, 2, 10});
    const auto stroked = painted();
    EXPECT_GT(qRed(stroked.pixel(8, 30)), qRed(plain.pixel(8, 30)));
    EXPECT_EQ(stroked.pixel(50, 30), plain.pixel(50, 30));
}

TEST_F(NotchShapeItemTest, theRegionIsTheShapeInWholePixels) {
    const auto region = shape.region();
    EXPECT_TRUE(region.contains(QPoint(50, 30)));
    EXPECT_FALSE(region.contains(QPoint(4, 30)));
    EXPECT_FALSE(region.contains(QPoint(9, 59)));
    // The tips of the flares are thinner than half a pixel.
    EXPECT_NEAR(region.boundingRect().left(), 2, 1);
    EXPECT_NEAR(region.boundingRect().right(), 97, 1);
    EXPECT_EQ(region.boundingRect().height(), 60);
}

TEST_F(NotchShapeItemTest, theRegionFollowsTheCurvesToThePixel) {
    const auto region = shape.region();
    shape.setColor(Qt::black);
    const auto image = painted();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int covered = qAlpha(image.pixel(x, y));
            const bool isNearHalf = covered >= 55 && covered <= 200; // either is right
            EXPECT_TRUE(isNearHalf || region.contains(QPoint(x, y)) == (covered > 200))
                << x << ", " << y;
        }
}

TEST_F(NotchShapeItemTest, aShapeTooLowForItsCurvesIsStillDrawn) {
    shape.setSize({100, 10});
    EXPECT_EQ(qAlpha(painted().pixel(50, 5)), 255);
    EXPECT_TRUE(shape.region().contains(QPoint(50, 5)));
}

} // namespace orvelle
