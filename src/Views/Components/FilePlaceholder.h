#pragma once

#include "Views/Components/TextStyle.h"

#include <string>
#include <string_view>

namespace orvelle {

/// What stands in the middle of a panel that has nothing to show: a symbol over a title.
struct FilePlaceholder {
    static constexpr double spacing = 8; ///< points

    StyledSymbol symbol;
    StyledText title;
    bool operator==(const FilePlaceholder&) const = default;
};

FilePlaceholder filePlaceholder(std::string title, std::string_view icon);

} // namespace orvelle
