#include "Platform/Linux/GeoClueClient.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QVariantMap>

#include <cmath>

namespace orvelle {

namespace {

const QString geoClueLocationInterface = geoClueName + QStringLiteral(".Location");
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

QString pathOf(const QDBusMessage& message, qsizetype argument) {
    return message.arguments().value(argument).value<QDBusObjectPath>().path();
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

GeoClueClient::GeoClueClient(GeoClue& geoclue, LocationAccuracy accuracy, Owner& owner)
    : geoclue_(geoclue), accuracyLevel_(level(accuracy)), owner_(owner),
      appeared_(geoclue.appeared.observe([this] { create(); })),
      left_(geoclue.left.observe([this] { forget(); })),
      updates_(geoclue.locationUpdated.observe([this](const QDBusMessage& signal) {
          if (path_.isEmpty() || signal.path() != path_)
              return;
          location_ = pathOf(signal, 1);
          read();
      })) {
    if (geoclue.isConnected())
        create();
    else
        geoclue.connect();
}

GeoClueClient::~GeoClueClient() {
    *isAlive_ = false;
    if (!path_.isEmpty())
        remove(geoclue_, path_);
}

void GeoClueClient::remove(GeoClue& geoclue, const QString& path) {
    geoclue.callManager(QStringLiteral("DeleteClient"),
                        {QVariant::fromValue(QDBusObjectPath(path))}, [](const QDBusMessage&) {});
}

void GeoClueClient::create() {
    question_ = geoclue_.question();
    geoclue_.callManager(
        QStringLiteral("CreateClient"), {},
        [this, &geoclue = geoclue_, isAlive = isAlive_](const QDBusMessage& reply) {
            if (*isAlive)
                created(reply);
            else if (reply.type() == QDBusMessage::ReplyMessage)
                remove(geoclue, pathOf(reply, 0));
        });
}

void GeoClueClient::created(const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage)
        return answered(reply);
    path_ = pathOf(reply, 0);
    const auto set = [this](const char* property, const QVariant& value) {
        geoclue_.call(path_, busPropertiesInterface, QStringLiteral("Set"),
                      {geoClueClientInterface, QLatin1String(property),
                       QVariant::fromValue(QDBusVariant(value))},
                      [](const QDBusMessage&) {});
    };
    set("DesktopId", desktopId);
    set("RequestedAccuracyLevel", accuracyLevel_);
    set("DistanceThreshold", distanceThreshold);
    geoclue_.askUser(path_, geoClueClientInterface, QStringLiteral("Start"),
                     [this, isAlive = isAlive_](const QDBusMessage& answer) {
                         if (*isAlive)
                             answered(answer);
                     });
}

void GeoClueClient::answered(const QDBusMessage& reply) {
    const auto isAlive = isAlive_; // an observer of the authorisation may end the client
    question_.reset();
    if (reply.type() == QDBusMessage::ReplyMessage) {
        geoclue_.setAuthorization(LocationAuthorization::authorizedAlways);
        if (*isAlive)
            owner_.started();
        return;
    }
    if (reply.errorName() == accessDenied)
        geoclue_.setAuthorization(LocationAuthorization::denied);
    if (*isAlive)
        owner_.failed(reply.errorMessage().toStdString());
}

void GeoClueClient::locateAgain() {
    if (!location_.isEmpty())
        read();
}

// A place may come before the start's own answer, and is one too.
void GeoClueClient::read() {
    geoclue_.call(
        location_, busPropertiesInterface, QStringLiteral("GetAll"), {geoClueLocationInterface},
        [this, isAlive = isAlive_](const QDBusMessage& reply) {
            const auto values = qdbus_cast<QVariantMap>(reply.arguments().value(0));
            const Coordinate place{degrees(values, "Latitude"), degrees(values, "Longitude")};
            if (!*isAlive || !isOnEarth(place))
                return;
            geoclue_.setAuthorization(LocationAuthorization::authorizedAlways);
            if (*isAlive)
                owner_.located(place);
        });
}

void GeoClueClient::forget() {
    path_.clear();
    location_.clear();
    question_.reset();
}

} // namespace orvelle
