#include "Platform/Linux/UPowerPowerSources.h"

#include "Platform/Simulated/SimulatedRunLoop.h"
#include "Support/TemporaryFolder.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

const QString upowerName = QStringLiteral("org.freedesktop.UPower");
const QString upowerPath = QStringLiteral("/org/freedesktop/UPower");

enum State : uint { charging = 1, discharging = 2, full = 4, pendingCharge = 5 };

class UPowerPowerSourcesTest : public testing::Test {
protected:
    UPowerPowerSourcesTest() {
        files.write("BAT0/uevent", "POWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Discharging\n"
                                   "POWER_SUPPLY_PRESENT=1\nPOWER_SUPPLY_CAPACITY=11\n");
    }

    void startUPower() {
        upower = std::make_unique<MockService>(bus, upowerName, upowerPath,
                                               MockService::fromTemplate(QStringLiteral("upower")));
    }
    void setDisplayDevice(uint type, uint state, double percent, qlonglong toEmpty,
                          qlonglong toFull, bool present) {
        upower->call(
            mockInterface, QStringLiteral("SetupDisplayDevice"),
            {type, state, percent, 0.0, 0.0, 0.0, toEmpty, toFull, present, QString(), uint{1}});
    }
    void setProperties(const QVariantMap& properties) {
        upower->call(mockInterface, QStringLiteral("SetDeviceProperties"),
                     {QVariant::fromValue(QDBusObjectPath(
                          QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice"))),
                      properties});
    }
    /// The value of the first source's key; none without a source.
    template <class Value>
    std::optional<Value> read(std::string_view key) {
        const auto list = sources.snapshot();
        loop.runPosted();
        if (!list || list->empty() || !list->front())
            return std::nullopt;
        return std::get<Value>(list->front()->find(key)->second);
    }
    bool waitForCapacity(std::int64_t percent) {
        return waitUntil([&] { return read<std::int64_t>("Current Capacity") == percent; });
    }

    TemporaryFolder files;
    PrivateBus bus;
    std::unique_ptr<MockService> upower;
    SimulatedRunLoop loop;
    UPowerPowerSources sources{loop, bus.provider(), files.path()};
};

TEST_F(UPowerPowerSourcesTest, TheBusIsNotTouchedBeforeTheFirstSnapshot) {
    loop.runPosted();
    EXPECT_EQ(bus.connectionCount(), 0);
    sources.snapshot();
    EXPECT_EQ(bus.connectionCount(), 0) << "a snapshot connects in the background";
    loop.runPosted();
    EXPECT_EQ(bus.connectionCount(), 1);
}

TEST_F(UPowerPowerSourcesTest, TheKernelAnswersUntilUPowerDoes) {
    startUPower();
    setDisplayDevice(2, discharging, 71.6, 7500, 0, true);
    EXPECT_EQ(read<std::int64_t>("Current Capacity"), 11);
    EXPECT_TRUE(waitForCapacity(72));
}

TEST_F(UPowerPowerSourcesTest, ADischargingBatteryIsDescribed) {
    startUPower();
    setDisplayDevice(2, discharging, 71.6, 7500, 0, true);
    ASSERT_TRUE(waitForCapacity(72));
    const PowerSourceDescription expected = {
        {"Type", std::string("InternalBattery")},
        {"Current Capacity", std::int64_t{72}},
        {"Is Charging", false},
        {"Power Source State", std::string("Battery Power")},
        {"Time to Empty", std::int64_t{125}},
        {"Time to Full Charge", std::int64_t{-1}},
    };
    EXPECT_EQ(sources.snapshot()->front(), expected);
}

TEST_F(UPowerPowerSourcesTest, SignalsKeepTheAnswerFresh) {
    startUPower();
    setDisplayDevice(2, charging, 50, 0, 3600, true);
    ASSERT_TRUE(waitForCapacity(50));
    EXPECT_EQ(read<bool>("Is Charging"), true);
    EXPECT_EQ(read<std::string>("Power Source State"), "AC Power");
    EXPECT_EQ(read<std::int64_t>("Time to Full Charge"), 60);
    setProperties({{QStringLiteral("Percentage"), 100.0}, {QStringLiteral("State"), uint{full}}});
    ASSERT_TRUE(waitForCapacity(100));
    EXPECT_TRUE(waitUntil([&] { return read<bool>("Is Charging") == false; }));
    EXPECT_EQ(read<std::string>("Power Source State"), "AC Power");
}

TEST_F(UPowerPowerSourcesTest, AMachineWithoutABatteryHasNoSources) {
    startUPower();
    setDisplayDevice(2, full, 100, 0, 0, false);
    const auto listed = [&] {
        read<bool>("Is Charging");
        return sources.snapshot().value().size();
    };
    EXPECT_EQ(listed(), 1u);
    EXPECT_TRUE(waitUntil([&] { return listed() == 0; }));
    setProperties({{QStringLiteral("IsPresent"), true}, {QStringLiteral("Type"), uint{2}}});
    EXPECT_TRUE(waitUntil([&] { return listed() == 1; }));
    setProperties({{QStringLiteral("Type"), uint{3}}});
    EXPECT_TRUE(waitUntil([&] { return listed() == 0; })) << "an emergency supply is no battery";
}

TEST_F(UPowerPowerSourcesTest, AServiceThatStartsLaterIsHeard) {
    EXPECT_EQ(read<std::int64_t>("Current Capacity"), 11);
    startUPower();
    setDisplayDevice(2, discharging, 33, 0, 0, true);
    EXPECT_TRUE(waitForCapacity(33));
}

TEST_F(UPowerPowerSourcesTest, AServiceThatLeavesIsForgottenAndHeardAgain) {
    startUPower();
    setDisplayDevice(2, discharging, 33, 0, 0, true);
    ASSERT_TRUE(waitForCapacity(33));
    upower.reset();
    EXPECT_TRUE(waitForCapacity(11));
    startUPower();
    setDisplayDevice(2, discharging, 34, 0, 0, true);
    EXPECT_TRUE(waitForCapacity(34));
}

TEST_F(UPowerPowerSourcesTest, AServiceThatHangsHoldsNothingUp) {
    startUPower();
    setDisplayDevice(2, discharging, 33, 0, 0, true);
    upower->hang();
    QElapsedTimer elapsed;
    elapsed.start();
    for (int turn = 0; turn < 50; ++turn) {
        EXPECT_EQ(read<std::int64_t>("Current Capacity"), 11);
        QCoreApplication::processEvents();
    }
    upower->wakeUp();
    EXPECT_TRUE(waitForCapacity(33));
}

TEST_F(UPowerPowerSourcesTest, PropertiesOfTheWrongTypeAreAsGoodAsMissing) {
    startUPower();
    setProperties({{QStringLiteral("Percentage"), QStringLiteral("full")},
                   {QStringLiteral("Type"), QStringLiteral("battery")},
                   {QStringLiteral("IsPresent"), true}});
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(read<std::int64_t>("Current Capacity"), 11);
        upower->callCount(QStringLiteral("Refresh")); // the question before it is answered by now
        QCoreApplication::processEvents();
    }
    setDisplayDevice(2, discharging, 33, 0, 0, true);
    ASSERT_TRUE(waitForCapacity(33));
    setProperties({{QStringLiteral("Percentage"), QStringLiteral("full")},
                   {QStringLiteral("State"), uint{charging}}});
    ASSERT_TRUE(waitUntil([&] { return read<bool>("Is Charging") == true; }));
    EXPECT_EQ(read<std::int64_t>("Current Capacity"), 33);
}

TEST_F(UPowerPowerSourcesTest, SignalsOfStrangersAreNotBelieved) {
    startUPower();
    setDisplayDevice(2, discharging, 33, 0, 0, true);
    ASSERT_TRUE(waitForCapacity(33));
    auto stranger = QDBusConnection::connectToBus(bus.address(), QStringLiteral("stranger"));
    auto lie = QDBusMessage::createSignal(
        QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
    lie << QStringLiteral("org.freedesktop.UPower.Device")
        << QVariantMap{{QStringLiteral("Percentage"), 99.0}} << QStringList();
    stranger.send(lie);
    stranger.interface()->isServiceRegistered(upowerName); // the lie is on the bus by now
    setProperties({{QStringLiteral("State"), uint{charging}}});
    ASSERT_TRUE(waitUntil([&] { return read<bool>("Is Charging") == true; }));
    EXPECT_EQ(read<std::int64_t>("Current Capacity"), 33);
    QDBusConnection::disconnectFromBus(QStringLiteral("stranger"));
}

} // namespace
} // namespace orvelle
