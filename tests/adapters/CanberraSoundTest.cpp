#include "Platform/Linux/CanberraSound.h"

#include "Support/TemporaryVariable.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

TEST(CanberraSound, NeitherAnUnknownNameNorAMissingServerIsAFault) {
    const TemporaryVariable driver("CANBERRA_DRIVER", "pulse");
    const TemporaryVariable server("PULSE_SERVER", "unix:/nonexistent/pulse");
    CanberraSound sound;
    sound.play("Glass");
    sound.play("Unheard of");
}

} // namespace
} // namespace orvelle
