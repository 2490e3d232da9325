#include "Platform/Linux/PortalAppearance.h"

#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/TemporaryFolder.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");

constexpr Color purple{0.5, 0.25, 0.75, 1};

class PortalAppearanceTest : public testing::Test {
protected:
    /// `accent` is a Python value, what the portal answers with.
    void startPortal(const QString& accent) {
        portal = std::make_unique<MockService>(
            bus, portalName, portalPath, MockService::empty(portalName, portalPath, settings));
        portal->addMethod(settings, QStringLiteral("Read"), QStringLiteral("ss"),
                          QStringLiteral("v"), QStringLiteral("ret = ") + accent);
        portal->addMethod(
            settings, QStringLiteral("Tell"), QStringLiteral("sddd"), QString(),
            QStringLiteral("self.EmitSignal('org.freedesktop.portal.Settings', 'SettingChanged', "
                           "'ssv', ['org.freedesktop.appearance', args[0], "
                           "dbus.Struct(args[1:], signature='ddd')])"));
    }
    void tell(const QString& key, double red, double green, double blue) {
        portal->call(settings, QStringLiteral("Tell"), {key, red, green, blue});
    }
    bool waitForAccent(const Color& color) {
        return waitUntil([&] {
            loop.runPosted();
            return appearance.controlAccentColor() == color;
        });
    }

    const QString accentKey = QStringLiteral("accent-color");
    const QString purpleTwiceWrapped =
        QStringLiteral("dbus.Struct((0.5, 0.25, 0.75), signature='ddd', variant_level=1)");
    TemporaryFolder files;
    PrivateBus bus;
    std::unique_ptr<MockService> portal;
    SimulatedRunLoop loop;
    PortalAppearance appearance{loop, bus.provider(), files.path("kdeglobals")};
};

TEST_F(PortalAppearanceTest, TheBusIsNotTouchedBeforeTheFirstQuestion) {
    loop.runPosted();
    EXPECT_EQ(bus.connectionCount(), 0);
    appearance.controlAccentColor();
    EXPECT_EQ(bus.connectionCount(), 0);
    loop.runPosted();
    EXPECT_EQ(bus.connectionCount(), 1);
}

TEST_F(PortalAppearanceTest, WithoutAPortalTheAccentIsACalmBlue) {
    EXPECT_EQ(appearance.controlAccentColor(), colors::blue);
}

TEST_F(PortalAppearanceTest, AnObserverHearsThePortalsAnswer) {
    startPortal(purpleTwiceWrapped);
    int changes = 0;
    const auto observer = appearance.observeSystemColorsChanges([&] { ++changes; });
    EXPECT_TRUE(waitUntil([&] {
        loop.runPosted();
        return changes == 1;
    }));
    EXPECT_EQ(appearance.controlAccentColor(), purple);
}

TEST_F(PortalAppearanceTest, AChangedSettingIsTold) {
    startPortal(purpleTwiceWrapped);
    ASSERT_TRUE(waitForAccent(purple));
    int changes = 0;
    const auto observer = appearance.observeSystemColorsChanges([&] { ++changes; });
    tell(QStringLiteral("color-scheme"), 0, 0, 0);
    tell(accentKey, 1, 0, 0.5);
    EXPECT_TRUE(waitForAccent({1, 0, 0.5, 1}));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalAppearanceTest, AColourOutOfRangeCountsAsNone) {
    startPortal(purpleTwiceWrapped);
    ASSERT_TRUE(waitForAccent(purple));
    tell(accentKey, 1.5, 0, 0);
    EXPECT_TRUE(waitForAccent(colors::blue));
    tell(accentKey, 0, 1, 0);
    EXPECT_TRUE(waitForAccent({0, 1, 0, 1}));
    tell(accentKey, -1, -1, -1);
    EXPECT_TRUE(waitForAccent(colors::blue));
}

TEST_F(PortalAppearanceTest, AnAnswerOfTheWrongTypeCountsAsNone) {
    startPortal(QStringLiteral("dbus.String('purple', variant_level=1)"));
    appearance.controlAccentColor();
    loop.runPosted();
    ASSERT_TRUE(waitUntil([&] { return portal->callCount(QStringLiteral("Read")) == 1; }));
    tell(accentKey, 0, 1, 0); // comes after the answer
    EXPECT_TRUE(waitForAccent({0, 1, 0, 1}));
}

TEST_F(PortalAppearanceTest, AChangeThatArrivesBeforeTheAnswerIsHeard) {
    startPortal(QStringLiteral("'purple'\nself.EmitSignal('org.freedesktop.portal.Settings', "
                               "'SettingChanged', 'ssv', ['org.freedesktop.appearance', "
                               "'accent-color', dbus.Struct((0.0, 1.0, 0.0), signature='ddd')])"));
    EXPECT_TRUE(waitForAccent({0, 1, 0, 1}));
}

TEST_F(PortalAppearanceTest, APortalThatStartsLaterIsHeard) {
    appearance.controlAccentColor();
    loop.runPosted();
    EXPECT_EQ(appearance.controlAccentColor(), colors::blue);
    startPortal(purpleTwiceWrapped);
    tell(accentKey, 0, 1, 0); // the first question may have come before the mock had its method
    EXPECT_TRUE(waitForAccent({0, 1, 0, 1}));
}

TEST_F(PortalAppearanceTest, TheAccentOfKdesSettingsServesWithoutAPortal) {
    files.write("kdeglobals", "[Colors:View]\nAccentColor=1,2,3\n\n[General]\n"
                              "AccentColor=51,102,255\nColorScheme=BreezeDark\n");
    EXPECT_EQ(appearance.controlAccentColor(), (Color{0.2, 0.4, 1, 1}));
}

TEST(KdeAccentTest, NonsenseIsNone) {
    EXPECT_EQ(parseKdeAccent(""), std::nullopt);
    EXPECT_EQ(parseKdeAccent("[General]\nAccentColor=1,2\n"), std::nullopt);
    EXPECT_EQ(parseKdeAccent("[General]\nAccentColor=1,2,256\n"), std::nullopt);
    EXPECT_EQ(parseKdeAccent("[General]\nAccentColor=\n"), std::nullopt);
    EXPECT_EQ(parseKdeAccent("AccentColor=1,2,3\n"), std::nullopt);
}

} // namespace
} // namespace orvelle
