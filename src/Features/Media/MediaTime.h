#pragma once

namespace orvelle {

/// A length or position in a track as it can be reckoned with: players also send negative and
/// absurdly long ones, and such that are no number, which all become 0.
double mediaTime(double seconds);

} // namespace orvelle
