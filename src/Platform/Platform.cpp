#include "Platform/Platform.h"

#include <cstdlib>

namespace orvelle {

namespace {
Platform* sharedPlatform = nullptr;
}

Platform& Platform::shared() {
    if (!sharedPlatform)
        std::abort();
    return *sharedPlatform;
}

void Platform::setShared(Platform* platform) {
    sharedPlatform = platform;
}

} // namespace orvelle
