#include "Extensions/ColorTheme.h"

namespace orvelle {

Color adaptiveAccent(const std::optional<Image>& image) {
    if (!image)
        return notchAccent;
    return image->colorAt(image->width() / 2, image->height() / 2).value_or(notchAccent);
}

} // namespace orvelle
