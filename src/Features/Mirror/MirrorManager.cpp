#include "Features/Mirror/MirrorManager.h"

#include "Models/Symbol.h"

namespace orvelle {

MirrorManager::MirrorManager(Platform&)
    : FeatureModule("mirror", "Mirror", std::string("person.crop.square"_symbol), false) {}

void MirrorManager::stopSession() {
    isSessionRunning = false;
}

} // namespace orvelle
