#pragma once

#include "Foundation/Color.h"

#include <string>
#include <string_view>

namespace orvelle {

enum class FontWeight { ultraLight, thin, light, regular, medium, semibold, bold };
enum class FontDesign { standard, monospaced };

/// The size of the smallest texts that are read as a line, in points.
inline constexpr double captionSize = 10;

/// How a text is drawn, in one of the system's faces.
struct TextStyle {
    double size = 13; ///< points
    FontWeight weight = FontWeight::regular;
    Color color = colors::white;
    FontDesign design = FontDesign::standard;
    bool operator==(const TextStyle&) const = default;
};

struct StyledText {
    std::string text;
    TextStyle style;
    bool operator==(const StyledText&) const = default;
};

/// One colour for the whole symbol, or its largest part in it and the others fainter.
enum class SymbolMode { monochrome, hierarchical };

/// A symbol of the symbol table, as large as a text of that size.
struct StyledSymbol {
    std::string_view name;
    double size = 13; ///< points
    Color color = colors::white;
    FontWeight weight = FontWeight::regular;
    SymbolMode mode = SymbolMode::monochrome;
    bool operator==(const StyledSymbol&) const = default;
};

} // namespace orvelle
