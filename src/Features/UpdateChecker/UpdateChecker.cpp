#include "Features/UpdateChecker/UpdateChecker.h"

namespace orvelle {

UpdateChecker::UpdateChecker(Platform&) {}

void UpdateChecker::start() {}

} // namespace orvelle
