#include "Features/Onboarding/OnboardingView.h"

#include "Views/Qt/Values.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QQmlComponent>

#include <algorithm>

namespace orvelle {
namespace {

class OnboardingPictureTest : public ViewFixture {
protected:
    OnboardingPictureTest() {
        platform.eventStorePort.status = EventAuthorizationStatus::notDetermined;
        platform.cameraPort.status = CameraAuthorizationStatus::notDetermined;
        QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/Orvelle/OnboardingView.qml")));
        wizard.reset(qobject_cast<QQuickItem*>(component.create()));
        EXPECT_NE(wizard, nullptr) << component.errorString().toStdString();
        if (!wizard)
            return;
        shell.resize(480, 380);
        wizard->setParentItem(shell.contentItem());
        wizard->setSize({480, 380});
        wizard->setFocus(true);
        shell.show();
        shell.requestActivate();
    }
    bool isAtRest() {
        const auto* step = item(wizard.get(), QStringLiteral("step"));
        return step->x() == 0 && step->opacity() == 1;
    }

    static int pixelsIn(const QImage& picture, const QColor& color) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += picture.pixel(x, y) == color.rgb();
        return count;
    }

    int completions = 0;
    ViewEngine engine{ViewEnvironment{environment, platform, {}, {}, [this] { ++completions; }}};
    QQuickWindow shell;
    KeyboardWalk keyboard{shell};
    std::unique_ptr<QQuickItem> wizard;
};

TEST_F(OnboardingPictureTest, TheKeyboardReachesEveryControlOfEveryStepAndIsSeenThere) {
    const std::size_t expected[] = {1, 4, 4, 4, 4, 4, 1};
    for (std::size_t step = 0; step < std::size(expected); ++step) {
        ASSERT_TRUE(eventually([this] { return isAtRest(); })) << step;
        const auto controls = KeyboardWalk::controlsBelow(wizard.get());
        EXPECT_EQ(controls.size(), expected[step]) << step;
        for (auto* each : controls) {
            const auto name = KeyboardWalk::name(each).toStdString();
            EXPECT_FALSE(name.empty()) << step;
            EXPECT_TRUE(keyboard.leadsTo(each)) << name << " of step " << step;
            EXPECT_TRUE(keyboard.canBeSeenOn(each)) << name << " of step " << step;
        }
        picture("wizard-" + std::to_string(step), shell);
        ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), QStringLiteral("forward"))));
        keyboard.press(Qt::Key_Return);
    }
    EXPECT_EQ(completions, 1);
}

TEST_F(OnboardingPictureTest, EveryStepIsRecolouredAtOnceByAModeFromOutside) {
    platform.appearancePort.accent = Color{1, 0, 0};
    platform.userDefaultsPort.set("customAccentHue", 0.5);
    const QColor custom = toQt(Color::hsb(0.5, 0.8, 0.9));
    for (int step = 0; step < 7; ++step) {
        platform.userDefaultsPort.set("themeMode", std::string("system"));
        turn();
        ASSERT_TRUE(eventually([this] { return isAtRest(); })) << step;
        const auto before = shell.grabWindow();
        platform.userDefaultsPort.set("themeMode", std::string("custom"));
        turn();
        const auto after = shell.grabWindow();
        EXPECT_EQ(pixelsIn(before, custom), 0) << step;
        EXPECT_GT(pixelsIn(after, custom), 50) << step;
        EXPECT_EQ(pixelsIn(after, QColor(Qt::red)), 0) << step;
        ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), QStringLiteral("forward"))));
        keyboard.press(Qt::Key_Return);
    }
}

TEST_F(OnboardingPictureTest, EachStepHasOnePrimaryButton) {
    for (int step = 0; step < 7; ++step) {
        ASSERT_TRUE(eventually([this] { return isAtRest(); })) << step;
        const auto controls = KeyboardWalk::controlsBelow(wizard.get());
        EXPECT_EQ(std::count_if(controls.begin(), controls.end(),
                                [](auto* each) { return each->property("prominent").toBool(); }),
                  1)
            << step;
        ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), QStringLiteral("forward"))));
        keyboard.press(Qt::Key_Return);
    }
}

TEST_F(OnboardingPictureTest, EveryStepIsLeftBothWaysByTheKeyboardWhichStaysInSight) {
    const auto hasKeyboard = [this] {
        const auto controls = KeyboardWalk::controlsBelow(wizard.get());
        return std::count(controls.begin(), controls.end(), shell.activeFocusItem()) == 1;
    };
    const auto pressOn = [&](const QString& name) {
        ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), name))) << name.toStdString();
        keyboard.press(Qt::Key_Return);
        ASSERT_TRUE(eventually([this] { return isAtRest(); }));
        EXPECT_TRUE(hasKeyboard()) << "after " << name.toStdString();
    };
    for (int step = 0; step < 5; ++step)
        pressOn(QStringLiteral("forward"));
    for (int step = 5; step > 0; --step)
        pressOn(QStringLiteral("back"));
    pressOn(QStringLiteral("forward"));
    for (int step = 1; step < 6; ++step)
        pressOn(QStringLiteral("skip"));
    EXPECT_EQ(shell.activeFocusItem(), item(wizard.get(), QStringLiteral("forward")));
    keyboard.press(Qt::Key_Return);
    EXPECT_EQ(completions, 1);
}

TEST_F(OnboardingPictureTest, AButtonThatIsAnsweredLeavesTheKeyboardToTheWayOn) {
    ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), QStringLiteral("forward"))));
    keyboard.press(Qt::Key_Return);
    ASSERT_TRUE(eventually([this] { return isAtRest(); }));
    ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), QStringLiteral("stepButton"))));
    keyboard.press(Qt::Key_Return);
    platform.locationServicePort.changeAuthorization(LocationAuthorization::authorizedAlways);
    turn();
    EXPECT_EQ(shell.activeFocusItem(), item(wizard.get(), QStringLiteral("forward")));
}

TEST_F(OnboardingPictureTest, TabLeadsThroughEveryStepInTheOrderOfTheEyeAndBack) {
    for (int step = 0; step < 7; ++step) {
        ASSERT_TRUE(eventually([this] { return isAtRest(); })) << step;
        for (const auto& fault : keyboard.faults())
            ADD_FAILURE() << "step " << step << ": " << fault;
        ASSERT_TRUE(keyboard.leadsTo(item(wizard.get(), QStringLiteral("forward"))));
        keyboard.press(Qt::Key_Return);
    }
}

} // namespace
} // namespace orvelle
