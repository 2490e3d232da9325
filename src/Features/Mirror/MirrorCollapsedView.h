#pragma once

#include "Models/Symbol.h"
#include "Views/Components/TextStyle.h"

namespace orvelle {

/// The mirror in the hover bar: the way to its panel.
struct MirrorCollapsedView {
    static constexpr StyledSymbol icon() {
        return {"person.crop.square"_symbol, 10, Color::white(1, 0.7)};
    }
};

} // namespace orvelle
