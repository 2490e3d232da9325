#include "Views/Components/FilePlaceholder.h"

#include "Extensions/ColorTheme.h"

#include <utility>

namespace orvelle {

FilePlaceholder filePlaceholder(std::string title, std::string_view icon) {
    return {{icon, 24, notchTertiary},
            {std::move(title), {13, FontWeight::regular, notchSecondary}}};
}

} // namespace orvelle
