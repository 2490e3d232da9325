#include "Platform/Linux/GeoClueLocationManager.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QVariantMap>

#include <cmath>

namespace orvelle {

namespace {

const QString geoClue = QStringLiteral("org.freedesktop.GeoClue2");
const QString managerPath = QStringLiteral("/org/freedesktop/GeoClue2/Manager");
const QString managerInterface = geoClue + QStringLiteral(".Manager");
const QString clientInterface = geoClue + QStringLiteral(".Client");
const QString locationInterface = geoClue + QStringLiteral(".Location");
const QString accessDenied = QStringLiteral("org.freedesktop.DBus.Error.AccessDenied");

const QString desktopId = QStringLiteral("orvelle");
constexpr unsigned neighborhood = 5;         // GClueAccuracyLevel
constexpr unsigned distanceThreshold = 1000; // metres between two fixes

unsigned level(LocationAccuracy accuracy) {
    switch (accuracy) {
    case LocationAccuracy::kilometer:
        break;
    }
    return neighborhood;
}

/// Not a number when it is missing or of another type.
double degrees(const QVariantMap& values, const char* name) {
    const auto value = values.value(QLatin1String(name));
    return value.metaType() == QMetaType::fromType<double>() ? value.toDouble() : NAN;
}

bool isOnEarth(Coordinate place) {
    return std::abs(place.latitude) <= 90 && std::abs(place.longitude) <= 180;
}

} // namespace

GeoClueLocationManager::GeoClueLocationManager(RunLoop& runLoop, BusProvider systemBus,
                                               LocationManagerDelegate& delegate,
                                               LocationAccuracy accuracy)
    : delegate_(delegate), accuracyLevel_(level(accuracy)),
      geoclue_(runLoop, std::move(systemBus), geoClue,
               {{}, clientInterface, QStringLiteral("LocationUpdated")},
               {.ask =
                    [this] {
                        isConnected_ = true;
                        if (isWanted())
                            createClient();
                    },
                .forget = [this] { forget(); },
                .hear = [this](const QDBusMessage& signal) { hear(signal); }}) {}

GeoClueLocationManager::~GeoClueLocationManager() {
    if (!client_.isEmpty())
        geoclue_.call(managerPath, managerInterface, QStringLiteral("DeleteClient"),
                      {QVariant::fromValue(QDBusObjectPath(client_))}, [](const QDBusMessage&) {});
}

void GeoClueLocationManager::startUpdatingLocation() {
    isUpdating_ = true;
    want();
}

void GeoClueLocationManager::requestLocation() {
    isRequested_ = true;
    want();
}

void GeoClueLocationManager::stopUpdatingLocation() {
    isUpdating_ = false;
    isRequested_ = false;
    stopClient();
}

void GeoClueLocationManager::want() {
    if (!isConnected_)
        geoclue_.start(); // asks once it is connected
    else if (stage_ == Stage::idle)
        client_.isEmpty() ? createClient() : startClient();
}

void GeoClueLocationManager::createClient() {
    stage_ = Stage::preparing;
    geoclue_.call(managerPath, managerInterface, QStringLiteral("CreateClient"), {},
                  [this](const QDBusMessage& reply) {
                      if (reply.type() != QDBusMessage::ReplyMessage)
                          return fail(reply);
                      client_ = reply.arguments().value(0).value<QDBusObjectPath>().path();
                      startClient();
                  });
}

void GeoClueLocationManager::startClient() {
    stage_ = Stage::preparing;
    const auto set = [this](const char* property, const QVariant& value) {
        geoclue_.call(
            client_, busPropertiesInterface, QStringLiteral("Set"),
            {clientInterface, QLatin1String(property), QVariant::fromValue(QDBusVariant(value))},
            [](const QDBusMessage&) {});
    };
    set("DesktopId", desktopId);
    set("RequestedAccuracyLevel", accuracyLevel_);
    set("DistanceThreshold", distanceThreshold);
    geoclue_.call(client_, clientInterface, QStringLiteral("Start"), {},
                  [this](const QDBusMessage& reply) {
                      if (reply.type() != QDBusMessage::ReplyMessage)
                          return fail(reply);
                      stage_ = Stage::started;
                      if (isWanted())
                          setAuthorization(LocationAuthorization::authorizedAlways);
                      else
                          stopClient();
                  });
}

void GeoClueLocationManager::stopClient() {
    if (stage_ != Stage::started)
        return;
    stage_ = Stage::idle;
    geoclue_.call(client_, clientInterface, QStringLiteral("Stop"), {}, [](const QDBusMessage&) {});
}

void GeoClueLocationManager::forget() {
    client_.clear();
    stage_ = Stage::idle;
}

void GeoClueLocationManager::hear(const QDBusMessage& signal) {
    if (isWanted() && signal.path() == client_)
        read(signal.arguments().value(1).value<QDBusObjectPath>().path());
}

void GeoClueLocationManager::read(const QString& location) {
    geoclue_.call(
        location, busPropertiesInterface, QStringLiteral("GetAll"), {locationInterface},
        [this](const QDBusMessage& reply) {
            const auto values = qdbus_cast<QVariantMap>(reply.arguments().value(0));
            const Coordinate place{degrees(values, "Latitude"), degrees(values, "Longitude")};
            if (!isWanted() || !isOnEarth(place))
                return;
            isRequested_ = false;
            if (!isUpdating_)
                stopClient();
            delegate_.didUpdateLocations(*this, {place});
        });
}

void GeoClueLocationManager::setAuthorization(LocationAuthorization authorization) {
    if (authorization == authorization_)
        return;
    authorization_ = authorization;
    delegate_.didChangeAuthorization(*this);
}

void GeoClueLocationManager::fail(const QDBusMessage& error) {
    stage_ = Stage::idle;
    isUpdating_ = false;
    isRequested_ = false;
    if (error.errorName() == accessDenied)
        setAuthorization(LocationAuthorization::denied);
    delegate_.didFailWithError(*this, error.errorMessage().toStdString());
}

} // namespace orvelle
