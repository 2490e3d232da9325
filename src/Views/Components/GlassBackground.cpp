#include "Views/Components/GlassBackground.h"

namespace orvelle {

std::optional<Stroke> GlassBackground::border() const {
    if (!showBorder)
        return std::nullopt;
    return Stroke{Color::white(1, 0.1), 0.5, 10};
}

} // namespace orvelle
