#include "Features/FileShelf/AirDropHelper.h"

#include "Platform/SharePicker.h"

namespace orvelle {

void AirDropHelper::share(const std::vector<std::string>& urls, const std::optional<Rect>& view,
                          Platform& platform) {
    if (urls.empty())
        return;
    auto& picker = platform.sharePicker();
    const auto bounds = view ? view : picker.keyWindowContent();
    if (!bounds)
        return;
    const Rect anchor{{bounds->midX() - anchorSide / 2, bounds->midY() - anchorSide / 2},
                      {anchorSide, anchorSide}};
    picker.show(urls, anchor, Edge::bottom);
}

} // namespace orvelle
