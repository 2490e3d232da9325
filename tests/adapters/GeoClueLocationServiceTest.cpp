#include "Platform/Linux/GeoClueLocationService.h"

#include "Platform/Simulated/SimulatedRunLoop.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <QDBusArgument>

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {
namespace {

const QString geoClueName = QStringLiteral("org.freedesktop.GeoClue2");
const QString managerPath = QStringLiteral("/org/freedesktop/GeoClue2/Manager");
const QString managerInterface = QStringLiteral("org.freedesktop.GeoClue2.Manager");
const QString clientPath = QStringLiteral("/org/freedesktop/GeoClue2/Client/1");
const QString clientInterface = QStringLiteral("org.freedesktop.GeoClue2.Client");

/// Makes the client object; `%1` is what its start does.
const QString createClient = QStringLiteral(R"(
if '/org/freedesktop/GeoClue2/Client/1' not in objects:
    self.AddObject('/org/freedesktop/GeoClue2/Client/1', 'org.freedesktop.GeoClue2.Client',
                   {'DesktopId': '', 'RequestedAccuracyLevel': dbus.UInt32(0),
                    'DistanceThreshold': dbus.UInt32(0)},
                   [('Start', '', '', '''%1'''), ('Stop', '', '', '')])
ret = dbus.ObjectPath('/org/freedesktop/GeoClue2/Client/1')
)");
/// Finds the machine at a place.
const QString findPlace = QStringLiteral(R"(
path = '/org/freedesktop/GeoClue2/Location/%1'
if path not in objects:
    self.AddObject(path, 'org.freedesktop.GeoClue2.Location',
                   {'Latitude': %2, 'Longitude': %3, 'Accuracy': 1000.0}, [])
self.EmitSignal('org.freedesktop.GeoClue2.Client', 'LocationUpdated', 'oo',
                [dbus.ObjectPath('/'), dbus.ObjectPath(path)])
)");
const QString refuse = QStringLiteral("raise dbus.exceptions.DBusException('Not you', "
                                      "name='org.freedesktop.DBus.Error.AccessDenied')");

QString placeAt(const char* latitude, const char* longitude) {
    static int number = 0;
    return findPlace.arg(++number).arg(QLatin1String(latitude), QLatin1String(longitude));
}

class Recorder : public LocationManagerDelegate {
public:
    std::vector<Coordinate> fixes;
    std::vector<LocationAuthorization> authorizations;
    std::vector<std::string> failures;
    bool stopsAtTheFirstFix = true; ///< as the weather does

    void didUpdateLocations(LocationManager& manager,
                            const std::vector<Coordinate>& locations) override {
        fixes.insert(fixes.end(), locations.begin(), locations.end());
        if (stopsAtTheFirstFix)
            manager.stopUpdatingLocation();
    }
    void didChangeAuthorization(LocationManager& manager) override {
        authorizations.push_back(manager.authorizationStatus());
    }
    void didFailWithError(LocationManager&, const std::string& description) override {
        failures.push_back(description);
    }
};

class GeoClueLocationServiceTest : public testing::Test {
protected:
    void startGeoClue(const QString& atStart) {
        geoclue = std::make_unique<MockService>(
            bus, geoClueName, managerPath,
            MockService::empty(geoClueName, managerPath, managerInterface));
        geoclue->addMethod(managerInterface, QStringLiteral("CreateClient"), QString(),
                           QStringLiteral("o"), createClient.arg(atStart));
        geoclue->addMethod(managerInterface, QStringLiteral("DeleteClient"), QStringLiteral("o"),
                           QString(), QString());
    }
    bool eventually(const std::function<bool()>& condition) {
        return waitUntil([&] {
            loop.runPosted();
            return condition();
        });
    }
    QVariant clientProperty(const QString& name) {
        return bus
            .call(geoClueName, clientPath, busPropertiesInterface, QStringLiteral("Get"),
                  {clientInterface, name})
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }
    qsizetype clientCalls(const QString& method) {
        const auto answer = bus.call(geoClueName, clientPath, mockInterface,
                                     QStringLiteral("GetMethodCalls"), {method});
        const auto calls = answer.value(0).value<QDBusArgument>();
        qsizetype count = 0;
        calls.beginArray();
        for (; !calls.atEnd(); ++count)
            calls.asVariant();
        calls.endArray();
        return count;
    }

    PrivateBus bus;
    std::unique_ptr<MockService> geoclue;
    SimulatedRunLoop loop;
    Recorder recorder;
    GeoClueLocationService service{loop, bus.provider()};
    std::unique_ptr<LocationManager> manager =
        service.makeLocationManager(recorder, LocationAccuracy::kilometer);
};

TEST_F(GeoClueLocationServiceTest, NobodyIsAskedBeforeAFixIsWanted) {
    loop.runPosted();
    EXPECT_EQ(bus.connectionCount(), 0);
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::notDetermined);
}

TEST_F(GeoClueLocationServiceTest, ARequestGivesOneFixAndStopsTheClient) {
    startGeoClue(placeAt("48.0", "2.25"));
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.fixes.empty(); }));
    EXPECT_EQ(recorder.fixes, (std::vector<Coordinate>{{48.0, 2.25}}));
    EXPECT_TRUE(eventually([&] { return clientCalls(QStringLiteral("Stop")) == 1; }));
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::authorizedAlways);
    EXPECT_EQ(recorder.authorizations, std::vector{LocationAuthorization::authorizedAlways});
    EXPECT_TRUE(recorder.failures.empty());
}

TEST_F(GeoClueLocationServiceTest, TheClientIsToldWhoAsksAndHowExactly) {
    startGeoClue(placeAt("48.0", "2.25"));
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.fixes.empty(); }));
    EXPECT_EQ(clientProperty(QStringLiteral("DesktopId")), QStringLiteral("orvelle"));
    EXPECT_EQ(clientProperty(QStringLiteral("RequestedAccuracyLevel")), 5u);
    EXPECT_EQ(clientProperty(QStringLiteral("DistanceThreshold")), 1000u);
}

TEST_F(GeoClueLocationServiceTest, ASecondRequestUsesTheSameClient) {
    startGeoClue(placeAt("48.0", "2.25"));
    for (std::size_t count = 1; count <= 2; ++count) {
        manager->requestLocation();
        ASSERT_TRUE(eventually([&] { return recorder.fixes.size() == count; }));
    }
    EXPECT_EQ(geoclue->callCount(QStringLiteral("CreateClient")), 1);
    EXPECT_EQ(clientCalls(QStringLiteral("Start")), 2);
}

TEST_F(GeoClueLocationServiceTest, WithoutTheServiceThereIsAFailureAndTheNextRequestAsksAgain) {
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return recorder.failures.size() == 1; }));
    EXPECT_FALSE(recorder.failures[0].empty());
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::notDetermined);
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return recorder.failures.size() == 2; }));
    startGeoClue(placeAt("48.0", "2.25"));
    manager->requestLocation();
    EXPECT_TRUE(eventually([&] { return recorder.fixes.size() == 1; }));
}

TEST_F(GeoClueLocationServiceTest, ARefusalIsADenial) {
    startGeoClue(refuse);
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.failures.empty(); }));
    EXPECT_NE(recorder.failures[0].find("Not you"), std::string::npos);
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::denied);
    EXPECT_EQ(recorder.authorizations, std::vector{LocationAuthorization::denied});
}

TEST_F(GeoClueLocationServiceTest, PlacesThatAreNotOnEarthAreNoFixes) {
    startGeoClue(placeAt("float(\"nan\")", "2.25") + placeAt("91.0", "2.25") +
                 placeAt("0.0", "\"east\"") + placeAt("48.0", "2.25"));
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.fixes.empty(); }));
    EXPECT_EQ(recorder.fixes, (std::vector<Coordinate>{{48.0, 2.25}}));
}

TEST_F(GeoClueLocationServiceTest, FixesArriveUntilTheStop) {
    startGeoClue(placeAt("1.0", "1.0") + placeAt("2.0", "2.0"));
    recorder.stopsAtTheFirstFix = false;
    manager->startUpdatingLocation();
    ASSERT_TRUE(eventually([&] { return recorder.fixes.size() == 2; }));
    EXPECT_EQ(clientCalls(QStringLiteral("Stop")), 0);
    manager->stopUpdatingLocation();
    EXPECT_TRUE(eventually([&] { return clientCalls(QStringLiteral("Stop")) == 1; }));
}

TEST_F(GeoClueLocationServiceTest, AServiceThatStartsAnewIsAskedAnew) {
    startGeoClue(QString());
    manager->requestLocation();
    ASSERT_TRUE(eventually(
        [&] { return manager->authorizationStatus() == LocationAuthorization::authorizedAlways; }));
    geoclue.reset();
    startGeoClue(placeAt("48.0", "2.25"));
    EXPECT_TRUE(eventually([&] {
        manager->requestLocation();
        return !recorder.fixes.empty();
    }));
}

TEST_F(GeoClueLocationServiceTest, AServiceThatHangsHoldsNothingUp) {
    startGeoClue(placeAt("48.0", "2.25"));
    geoclue->hang();
    manager->requestLocation();
    for (int turn = 0; turn < 50; ++turn) {
        loop.runPosted();
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(recorder.fixes.empty());
    geoclue->wakeUp();
    EXPECT_TRUE(eventually([&] { return recorder.fixes.size() == 1; }));
}

TEST_F(GeoClueLocationServiceTest, AManagerThatDiesGivesItsClientBack) {
    startGeoClue(placeAt("48.0", "2.25"));
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.fixes.empty(); }));
    manager.reset();
    EXPECT_TRUE(
        eventually([&] { return geoclue->callCount(QStringLiteral("DeleteClient")) == 1; }));
}

} // namespace
} // namespace orvelle
