#pragma once

#include "Foundation/Published.h"
#include "Platform/Linux/BusService.h"
#include "Platform/LocationService.h"

#include <memory>

namespace orvelle {

inline const QString geoClueName = QStringLiteral("org.freedesktop.GeoClue2");
inline const QString geoClueClientInterface = geoClueName + QStringLiteral(".Client");

/// GeoClue on its bus, and what it lets the program know: one answer holds for all its clients.
class GeoClue {
public:
    GeoClue(RunLoop& runLoop, BusProvider systemBus, int callTimeout);

    Event<> appeared; ///< it may be asked: once connected, and whenever it starts anew
    Event<> left;     ///< its objects are gone
    Event<QDBusMessage> locationUpdated;
    Event<> authorizationChanged;

    /// Does `appeared` later, if it has not yet happened.
    void connect() { bus_.start(); }
    bool isConnected() const { return isConnected_; }
    void callManager(const QString& method, const QVariantList& arguments,
                     std::function<void(const QDBusMessage&)> done);
    void call(const QString& path, const QString& interface, const QString& method,
              const QVariantList& arguments, std::function<void(const QDBusMessage&)> done);
    /// A call that waits for the user, who may take hours.
    void askUser(const QString& path, const QString& interface, const QString& method,
                 std::function<void(const QDBusMessage&)> done);

    LocationAuthorization authorization() const { return authorization_; }
    void setAuthorization(LocationAuthorization authorization);

    /// Held by whoever waits for an answer of the user's.
    std::shared_ptr<void> question() const { return question_; }
    bool isAsking() const { return question_.use_count() > 1; }

private:
    const int callTimeout_; ///< milliseconds
    LocationAuthorization authorization_ = LocationAuthorization::notDetermined;
    bool isConnected_ = false;
    std::shared_ptr<int> question_ = std::make_shared<int>();
    BusService bus_;
};

} // namespace orvelle
