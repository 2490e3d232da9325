#include "Views/UnsavedNotice.h"

#include <algorithm>

namespace orvelle {

std::optional<StyledText> UnsavedNotice::text(const UnsavedChanges::Files& files) {
    const auto gravest =
        std::ranges::min_element(files, {}, [](const auto& file) { return file.second; });
    if (gravest == files.end())
        return std::nullopt;
    return StyledText{"Not saved: " + describe(gravest->second),
                      {captionSize, FontWeight::medium, colors::orange}};
}

} // namespace orvelle
