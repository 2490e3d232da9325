#pragma once

#include "Foundation/Color.h"

#include <string>
#include <string_view>

namespace orvelle {

enum class FontWeight { ultraLight, light, regular, medium, semibold, bold };

/// How a text is drawn, in the system's face.
struct TextStyle {
    double size = 13; ///< points
    FontWeight weight = FontWeight::regular;
    Color color = colors::white;
    bool operator==(const TextStyle&) const = default;
};

struct StyledText {
    std::string text;
    TextStyle style;
    bool operator==(const StyledText&) const = default;
};

/// A symbol of the symbol table, as large as a text of that size.
struct StyledSymbol {
    std::string_view name;
    double size = 13; ///< points
    Color color = colors::white;
    bool operator==(const StyledSymbol&) const = default;
};

} // namespace orvelle
