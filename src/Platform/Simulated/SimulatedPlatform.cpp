#include "Platform/Simulated/SimulatedPlatform.h"

namespace orvelle {

// Here and not inline: every test would compile all of the machine's ports.
SimulatedPlatform::SimulatedPlatform() = default;
SimulatedPlatform::~SimulatedPlatform() = default;

} // namespace orvelle
