#include "Features/HUD/HUDManager.h"

#include "Models/Symbol.h"

namespace orvelle {

HUDManager::HUDManager(std::weak_ptr<NotchState>, Platform&)
    : FeatureModule("hud", "HUD", std::string("speaker.wave.2"_symbol)) {}

void HUDManager::startIntercepting() {
    isIntercepting = true;
}

void HUDManager::stopIntercepting() {
    isIntercepting = false;
}

} // namespace orvelle
