#include "Platform/Linux/GeoClueLocationService.h"

#include "Platform/Simulated/SimulatedRunLoop.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <QDBusArgument>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace orvelle {
namespace {

const QString managerPath = QStringLiteral("/org/freedesktop/GeoClue2/Manager");
const QString clientPath = QStringLiteral("/org/freedesktop/GeoClue2/Client/1");
constexpr int callTimeout = 200; // milliseconds

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
    void startGeoClue(const char* answer = "allow") {
        geoclue = std::make_unique<MockService>(
            bus, geoClueName, managerPath,
            MockService::fromScript(QStringLiteral(ORVELLE_TEST_SUPPORT "/geoclue2.py")));
        geoclue->call(mockInterface, QStringLiteral("SetAnswer"), {QString::fromLatin1(answer)});
    }
    void moveTo(const QVariant& latitude, const QVariant& longitude) {
        geoclue->call(mockInterface, QStringLiteral("MoveTo"),
                      {QVariant::fromValue(QDBusVariant(latitude)),
                       QVariant::fromValue(QDBusVariant(longitude))});
    }
    void decide(bool allowed) {
        geoclue->call(mockInterface, QStringLiteral("AnswerQuestions"), {allowed});
    }
    struct Counts {
        unsigned created, existing, started, asking;
        bool operator==(const Counts&) const = default;
    };
    Counts counts() {
        const auto answer = geoclue->call(mockInterface, QStringLiteral("Counts"));
        return {answer.value(0).toUInt(), answer.value(1).toUInt(), answer.value(2).toUInt(),
                answer.value(3).toUInt()};
    }
    bool eventually(const std::function<bool()>& condition) {
        return waitUntil([&] {
            loop.runPosted();
            return condition();
        });
    }
    bool comeToRest(unsigned created) {
        return eventually([&] { return counts() == Counts{created, 0, 0, 0}; });
    }
    bool fixed(std::size_t count) {
        return eventually([&] { return recorder.fixes.size() == count; });
    }
    QVariant clientProperty(const QString& name) {
        return bus
            .call(geoClueName, clientPath, busPropertiesInterface, QStringLiteral("Get"),
                  {geoClueClientInterface, name})
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }
    /// Until a call of the machine's own kind that began now has been given up.
    bool outlastATimeout() {
        QObject context;
        bool isOver = false;
        auto call = QDBusMessage::createMethodCall(geoClueName, managerPath, mockInterface,
                                                   QStringLiteral("NeverAnswer"));
        callBus(
            bus.provider()(), call, &context,
            [&](const QDBusMessage& reply) { isOver = reply.type() == QDBusMessage::ErrorMessage; },
            callTimeout);
        return eventually([&] { return isOver; });
    }

    PrivateBus bus;
    std::unique_ptr<MockService> geoclue;
    SimulatedRunLoop loop;
    Recorder recorder;
    GeoClueLocationService service{loop, bus.provider(), callTimeout};
    std::unique_ptr<LocationManager> manager =
        service.makeLocationManager(recorder, LocationAccuracy::kilometer);
};

TEST_F(GeoClueLocationServiceTest, NobodyIsAskedBeforeAFixIsWanted) {
    service.refreshAuthorization();
    loop.runPosted();
    EXPECT_EQ(bus.connectionCount(), 0);
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::notDetermined);
}

TEST_F(GeoClueLocationServiceTest, ARequestGivesOneFixAndLeavesNoClient) {
    startGeoClue();
    moveTo(48.0, 2.25);
    recorder.stopsAtTheFirstFix = false;
    manager->requestLocation();
    ASSERT_TRUE(fixed(1));
    EXPECT_EQ(recorder.fixes, (std::vector<Coordinate>{{48.0, 2.25}}));
    EXPECT_TRUE(comeToRest(1));
    EXPECT_EQ(service.authorizationStatus(), LocationAuthorization::authorizedAlways);
    EXPECT_EQ(recorder.authorizations, std::vector{LocationAuthorization::authorizedAlways});
    EXPECT_TRUE(recorder.failures.empty());
}

TEST_F(GeoClueLocationServiceTest, AFixThatComesLaterCountsAsMuch) {
    startGeoClue();
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().started == 1; }));
    moveTo(48.0, 2.25);
    ASSERT_TRUE(fixed(1));
    EXPECT_TRUE(comeToRest(1));
}

TEST_F(GeoClueLocationServiceTest, TheClientIsToldWhoAsksAndHowExactly) {
    startGeoClue();
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().started == 1; }));
    EXPECT_EQ(clientProperty(QStringLiteral("DesktopId")), QStringLiteral("orvelle"));
    EXPECT_EQ(clientProperty(QStringLiteral("RequestedAccuracyLevel")), 5u);
    EXPECT_EQ(clientProperty(QStringLiteral("DistanceThreshold")), 1000u);
}

TEST_F(GeoClueLocationServiceTest, EveryRequestOfAMachineThatRestsGivesAFix) {
    startGeoClue();
    moveTo(48.0, 2.25);
    for (std::size_t count = 1; count <= 3; ++count) {
        manager->requestLocation();
        ASSERT_TRUE(fixed(count)) << count;
    }
}

TEST_F(GeoClueLocationServiceTest, ARequestDuringUpdatesGivesTheKnownPlaceOnceMore) {
    startGeoClue();
    moveTo(48.0, 2.25);
    recorder.stopsAtTheFirstFix = false;
    manager->startUpdatingLocation();
    ASSERT_TRUE(fixed(1));
    manager->requestLocation();
    ASSERT_TRUE(fixed(2));
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 0})) << "the updates go on";
}

TEST_F(GeoClueLocationServiceTest, FixesArriveUntilTheStop) {
    startGeoClue();
    moveTo(1.0, 1.0);
    recorder.stopsAtTheFirstFix = false;
    manager->startUpdatingLocation();
    ASSERT_TRUE(fixed(1));
    moveTo(1.001, 1.0); // some hundred metres
    moveTo(2.0, 2.0);
    ASSERT_TRUE(fixed(2));
    EXPECT_EQ(recorder.fixes.back(), (Coordinate{2.0, 2.0}));
    manager->stopUpdatingLocation();
    EXPECT_TRUE(comeToRest(1));
}

TEST_F(GeoClueLocationServiceTest, AQuestionThatIsAnsweredLateStillGivesTheFix) {
    startGeoClue("ask");
    moveTo(48.0, 2.25);
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().asking == 1; }));
    ASSERT_TRUE(outlastATimeout());
    EXPECT_TRUE(recorder.failures.empty());
    EXPECT_EQ(service.authorizationStatus(), LocationAuthorization::notDetermined);
    decide(true);
    ASSERT_TRUE(fixed(1));
    EXPECT_EQ(service.authorizationStatus(), LocationAuthorization::authorizedAlways);
    EXPECT_TRUE(comeToRest(1));
}

TEST_F(GeoClueLocationServiceTest, AWishThatIsGivenUpWhileTheUserIsAskedLeavesNothingBehind) {
    startGeoClue("ask");
    moveTo(48.0, 2.25);
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().asking == 1; }));
    manager->stopUpdatingLocation();
    ASSERT_TRUE(comeToRest(1));
    decide(true);
    manager->requestLocation();
    ASSERT_TRUE(fixed(1));
    EXPECT_TRUE(comeToRest(2));
}

TEST_F(GeoClueLocationServiceTest, AWishThatIsGivenUpAtOnceLeavesNothingBehind) {
    startGeoClue();
    moveTo(48.0, 2.25);
    manager->requestLocation();
    ASSERT_TRUE(fixed(1));
    manager->requestLocation();
    manager->stopUpdatingLocation();
    EXPECT_TRUE(eventually([&] { return counts().created == 2; }));
    EXPECT_TRUE(comeToRest(2));
    EXPECT_EQ(recorder.fixes.size(), 1u);
}

TEST_F(GeoClueLocationServiceTest, WithoutTheServiceThereIsAFailureAndTheNextRequestAsksAgain) {
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return recorder.failures.size() == 1; }));
    EXPECT_FALSE(recorder.failures[0].empty());
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::notDetermined);
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return recorder.failures.size() == 2; }));
    startGeoClue();
    moveTo(48.0, 2.25);
    manager->requestLocation();
    EXPECT_TRUE(fixed(1));
}

TEST_F(GeoClueLocationServiceTest, ARefusalIsADenial) {
    startGeoClue("deny");
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.failures.empty(); }));
    EXPECT_NE(recorder.failures[0].find("'orvelle' disallowed"), std::string::npos);
    EXPECT_EQ(manager->authorizationStatus(), LocationAuthorization::denied);
    EXPECT_EQ(recorder.authorizations, std::vector{LocationAuthorization::denied});
    EXPECT_TRUE(comeToRest(1));
}

TEST_F(GeoClueLocationServiceTest, OneAnswerHoldsForAllManagers) {
    startGeoClue("deny");
    Recorder other;
    const auto second = service.makeLocationManager(other, LocationAccuracy::kilometer);
    int changes = 0;
    const auto observer = service.observeAuthorization([&] { ++changes; });
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return changes == 1; }));
    EXPECT_EQ(second->authorizationStatus(), LocationAuthorization::denied);
    EXPECT_EQ(other.authorizations, std::vector{LocationAuthorization::denied});
    EXPECT_TRUE(other.failures.empty());
    Recorder late;
    EXPECT_EQ(service.makeLocationManager(late, LocationAccuracy::kilometer)->authorizationStatus(),
              LocationAuthorization::denied);
}

TEST_F(GeoClueLocationServiceTest, WhoAsksAgainHearsOfAnotherDecisionAndGetsNoFix) {
    startGeoClue("deny");
    moveTo(48.0, 2.25);
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.failures.empty(); }));
    for (const bool allowed : {true, false, true}) {
        decide(allowed);
        service.refreshAuthorization();
        ASSERT_TRUE(eventually([&] {
            return service.authorizationStatus() == (allowed
                                                         ? LocationAuthorization::authorizedAlways
                                                         : LocationAuthorization::denied);
        })) << allowed;
    }
    EXPECT_TRUE(comeToRest(4));
    EXPECT_EQ(recorder.authorizations.size(), 4u);
    EXPECT_EQ(recorder.failures.size(), 1u);
    EXPECT_TRUE(recorder.fixes.empty());
}

TEST_F(GeoClueLocationServiceTest, NobodyIsAskedAgainWhileAQuestionStands) {
    startGeoClue("deny");
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return !recorder.failures.empty(); }));
    geoclue->call(mockInterface, QStringLiteral("SetAnswer"), {QStringLiteral("ask")});
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().asking == 1; }));
    service.refreshAuthorization();
    service.refreshAuthorization();
    moveTo(48.0, 2.25);
    decide(true);
    ASSERT_TRUE(fixed(1));
    EXPECT_TRUE(comeToRest(2));
    EXPECT_EQ(counts().created, 2u);
}

TEST_F(GeoClueLocationServiceTest, PlacesThatAreNotOnEarthAreNoFixes) {
    startGeoClue();
    recorder.stopsAtTheFirstFix = false;
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().started == 1; }));
    moveTo(std::nan(""), 2.25);
    moveTo(91.0, 2.25);
    moveTo(0.0, QStringLiteral("east"));
    moveTo(48.0, 2.25);
    ASSERT_TRUE(fixed(1));
    EXPECT_EQ(recorder.fixes, (std::vector<Coordinate>{{48.0, 2.25}}));
}

TEST_F(GeoClueLocationServiceTest, AServiceThatStartsAnewIsAskedAnew) {
    startGeoClue();
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().started == 1; }));
    geoclue.reset();
    startGeoClue();
    ASSERT_TRUE(eventually([&] { return counts().started == 1; }));
    moveTo(48.0, 2.25);
    EXPECT_TRUE(fixed(1));
}

TEST_F(GeoClueLocationServiceTest, AServiceThatHangsHoldsNothingUp) {
    startGeoClue();
    moveTo(48.0, 2.25);
    geoclue->hang();
    manager->requestLocation();
    for (int turn = 0; turn < 50; ++turn) {
        loop.runPosted();
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(recorder.fixes.empty());
    geoclue->wakeUp();
    EXPECT_TRUE(eventually([&] {
        if (!recorder.failures.empty())
            manager->requestLocation();
        return !recorder.fixes.empty();
    }));
}

TEST_F(GeoClueLocationServiceTest, AManagerThatDiesGivesItsClientBack) {
    startGeoClue();
    manager->requestLocation();
    ASSERT_TRUE(eventually([&] { return counts().started == 1; }));
    manager.reset();
    EXPECT_TRUE(comeToRest(1));
}

} // namespace
} // namespace orvelle
