#include "Models/PermissionStatus.h"

namespace orvelle {

namespace {

const std::string notYetRequested = "Not yet requested";
const std::string denied = "Denied - enable in System Settings";
const std::string unknown = "Unknown";

} // namespace

std::string statusText(LocationAuthorization status) {
    switch (status) {
    case LocationAuthorization::notDetermined:
        return notYetRequested;
    case LocationAuthorization::restricted:
    case LocationAuthorization::denied:
        return denied;
    case LocationAuthorization::authorizedAlways:
        return grantedStatusText;
    case LocationAuthorization::authorizedWhenInUse:
        break;
    }
    return unknown;
}

std::string statusText(EventAuthorizationStatus status) {
    switch (status) {
    case EventAuthorizationStatus::notDetermined:
        return notYetRequested;
    case EventAuthorizationStatus::restricted:
    case EventAuthorizationStatus::denied:
        return denied;
    case EventAuthorizationStatus::fullAccess:
        return grantedStatusText;
    case EventAuthorizationStatus::writeOnly:
        return "Write-only - enable full access in System Settings";
    }
    return unknown;
}

std::string statusText(CameraAuthorizationStatus status) {
    switch (status) {
    case CameraAuthorizationStatus::notDetermined:
        return notYetRequested;
    case CameraAuthorizationStatus::restricted:
    case CameraAuthorizationStatus::denied:
        return denied;
    case CameraAuthorizationStatus::authorized:
        return grantedStatusText;
    }
    return unknown;
}

} // namespace orvelle
