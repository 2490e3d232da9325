#include "Core/Animation/Spring.h"

#include <cmath>
#include <numbers>

namespace orvelle {

Spring::Motion Spring::at(Seconds time, Motion initial) const {
    const double omega = 2 * std::numbers::pi / response; // undamped angular frequency
    const double decay = dampingFraction * omega;
    const double x0 = initial.displacement;
    const double v0 = initial.velocity;

    if (dampingFraction < 1) {
        const double ringing = omega * std::sqrt(1 - dampingFraction * dampingFraction);
        const double envelope = std::exp(-decay * time);
        const double cosine = std::cos(ringing * time);
        const double sine = std::sin(ringing * time);
        const double b = (v0 + decay * x0) / ringing;
        return {envelope * (x0 * cosine + b * sine),
                envelope *
                    ((b * ringing - decay * x0) * cosine - (x0 * ringing + decay * b) * sine)};
    }
    if (dampingFraction > 1) {
        const double spread = omega * std::sqrt(dampingFraction * dampingFraction - 1);
        const double slow = -decay + spread;
        const double fast = -decay - spread;
        const double b = (v0 - slow * x0) / (fast - slow);
        const double a = x0 - b;
        const double slowTerm = a * std::exp(slow * time);
        const double fastTerm = b * std::exp(fast * time);
        return {slowTerm + fastTerm, slow * slowTerm + fast * fastTerm};
    }
    const double envelope = std::exp(-omega * time);
    const double b = v0 + omega * x0;
    return {envelope * (x0 + b * time), envelope * (v0 - omega * b * time)};
}

} // namespace orvelle
