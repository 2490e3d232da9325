#include "Features/UpdateChecker/UpdateChecker.h"

namespace orvelle {

UpdateChecker::UpdateChecker(Platform&) {}

void UpdateChecker::start() {}

void UpdateChecker::check(std::function<void()> done) {
    if (done)
        done();
}

} // namespace orvelle
