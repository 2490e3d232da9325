#include "Platform/Linux/GeoClue.h"

#include <limits>
#include <utility>

namespace orvelle {

namespace {

const QString geoClueManagerPath = QStringLiteral("/org/freedesktop/GeoClue2/Manager");
const QString geoClueManagerInterface = geoClueName + QStringLiteral(".Manager");
constexpr int noTimeout = std::numeric_limits<int>::max(); // as the bus library has it

} // namespace

GeoClue::GeoClue(RunLoop& runLoop, BusProvider systemBus, int callTimeout)
    : callTimeout_(callTimeout),
      bus_(runLoop, std::move(systemBus), geoClueName,
           {{}, geoClueClientInterface, QStringLiteral("LocationUpdated")},
           {.ask =
                [this] {
                    isConnected_ = true;
                    appeared();
                },
            .forget = [this] { left(); },
            .hear = [this](const QDBusMessage& signal) { locationUpdated(signal); }}) {}

void GeoClue::callManager(const QString& method, const QVariantList& arguments,
                          std::function<void(const QDBusMessage&)> done) {
    call(geoClueManagerPath, geoClueManagerInterface, method, arguments, std::move(done));
}

void GeoClue::call(const QString& path, const QString& interface, const QString& method,
                   const QVariantList& arguments, std::function<void(const QDBusMessage&)> done) {
    bus_.call(path, interface, method, arguments, std::move(done), callTimeout_);
}

void GeoClue::askUser(const QString& path, const QString& interface, const QString& method,
                      std::function<void(const QDBusMessage&)> done) {
    bus_.call(path, interface, method, {}, std::move(done), noTimeout);
}

void GeoClue::setAuthorization(LocationAuthorization authorization) {
    if (authorization == authorization_)
        return;
    authorization_ = authorization;
    authorizationChanged();
}

} // namespace orvelle
