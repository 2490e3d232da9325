#include "Views/Qt/Values.h"
#include "views/ViewFixture.h"

#include <QAccessible>

namespace orvelle {

class AnimatedSliderTest : public ViewFixture {
protected:
    AnimatedSlider level{.value = 25, .lowerBound = 0, .upperBound = 100, .height = 6};
    std::unique_ptr<QQuickItem> slider;

    void make(bool isInteractive = false) {
        slider = part("AnimatedSlider", {{"slider", QVariant::fromValue(toQt(level))},
                                         {"interactive", isInteractive},
                                         {"width", 200}});
        ASSERT_NE(slider, nullptr);
    }
    void set(double value) {
        level.value = value;
        slider->setProperty("slider", QVariant::fromValue(toQt(level)));
    }
    double fill() { return item(slider.get(), "fill")->width(); }
    double thumbCenter() {
        const auto* thumb = item(slider.get(), "thumb");
        return thumb ? thumb->mapToItem(slider.get(), {thumb->width() / 2, 0}).x() : -1;
    }
};

TEST_F(AnimatedSliderTest, theFillMovesOnASpringAndTheThumbAtOnce) {
    make();
    EXPECT_EQ(fill(), 50);
    EXPECT_EQ(thumbCenter(), 50);
    set(75);
    EXPECT_EQ(thumbCenter(), 150);
    EXPECT_LT(fill(), 60);
    ASSERT_TRUE(eventually([&] { return fill() > 60 && fill() < 140; }));
    EXPECT_TRUE(eventually([&] { return fill() == 150; }));
}

TEST_F(AnimatedSliderTest, anotherWidthOfTheTrackIsNoMovement) {
    make();
    slider->setWidth(400);
    EXPECT_EQ(fill(), 100);
    EXPECT_EQ(thumbCenter(), 100);
}

TEST_F(AnimatedSliderTest, withoutAThumbNoneIsDrawn) {
    level.showThumb = false;
    make();
    EXPECT_EQ(item(slider.get(), "thumb"), nullptr);
}

TEST_F(AnimatedSliderTest, theThumbIsACircleOnWholePixels) {
    level.height = 4;
    for (const double width : {200.0, 201.0, 203.3}) {
        make();
        slider->setWidth(width);
        const auto* thumb = item(slider.get(), "thumb");
        ASSERT_NE(thumb, nullptr);
        ASSERT_FALSE(thumb->childItems().isEmpty());
        for (const auto* disc : thumb->childItems()) {
            EXPECT_EQ(disc->width(), disc->height());
            const auto corner = disc->mapToScene(QPointF());
            EXPECT_EQ(corner, corner.toPoint().toPointF()) << width;
        }
    }
}

TEST_F(AnimatedSliderTest, theThumbGrowsUnderThePointerAndShrinksAfterIt) {
    make(true);
    const auto* thumb = item(slider.get(), "thumb");
    ASSERT_NE(thumb, nullptr);
    mouse(QEvent::MouseButtonPress, frameOf("track").center());
    EXPECT_TRUE(eventually([&] { return thumb->scale() == 1.2; }));
    mouse(QEvent::MouseButtonRelease, frameOf("track").center());
    EXPECT_TRUE(eventually([&] { return thumb->scale() == 1.0; }));
}

TEST_F(AnimatedSliderTest, itTellsItsLevelToAssistiveTools) {
    make();
    auto* spoken = QAccessible::queryAccessibleInterface(slider.get());
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->text(QAccessible::Name), "25%");
    EXPECT_EQ(spoken->role(), QAccessible::ProgressBar) << "nobody can move it";
    make(true);
    spoken = QAccessible::queryAccessibleInterface(slider.get());
    EXPECT_EQ(spoken->role(), QAccessible::Slider);
}

class SliderDragTest : public ViewFixture {
protected:
    SliderDragTest() {
        show(ActivePanel::time);
        notchState.hudType = HUDType::volume;
        notchState.hudValue = 0.4;
        notchState.isHUDVisible = true;
        EXPECT_TRUE(eventually([&] { return item("hud") != nullptr; }));
    }
    QRectF track() { return frameOf("track"); }
};

TEST_F(SliderDragTest, aDragBeyondEitherEndStopsAtTheBound) {
    const auto at = track();
    ASSERT_EQ(at.size(), QSizeF(200, 6));
    mouse(QEvent::MouseButtonPress, at.center());
    EXPECT_EQ(notchState.hudValue, 0.5);
    mouse(QEvent::MouseMove, {at.right() + 90, at.center().y()});
    EXPECT_EQ(notchState.hudValue, 1);
    mouse(QEvent::MouseMove, {at.left() - 70, at.center().y()});
    EXPECT_EQ(notchState.hudValue, 0);
    mouse(QEvent::MouseMove, {at.left() + 50, at.center().y()});
    EXPECT_EQ(notchState.hudValue, 0.25);
    mouse(QEvent::MouseButtonRelease, {at.left() + 50, at.center().y()});
    mouse(QEvent::MouseMove, {at.right(), at.center().y()});
    EXPECT_EQ(notchState.hudValue, 0.25) << "the drag is over";
}

} // namespace orvelle
