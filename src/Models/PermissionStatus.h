#pragma once

#include "Platform/CameraService.h"
#include "Platform/EventStore.h"
#include "Platform/LocationService.h"

#include <string>

namespace orvelle {

// The states of the three permissions in a word.
std::string statusText(LocationAuthorization status);
std::string statusText(EventAuthorizationStatus status);
std::string statusText(CameraAuthorizationStatus status);

inline const std::string grantedStatusText = "Granted";

/// Whether only the desktop's own settings can still give it.
template <class Status>
bool isDenied(Status status) {
    return status == Status::denied || status == Status::restricted;
}

} // namespace orvelle
