#pragma once

#include "Core/ServiceRoots.h"
#include "Foundation/Published.h"
#include "Foundation/Subscription.h"
#include "Models/SavedLocation.h"
#include "Platform/Platform.h"

#include <string_view>
#include <vector>

namespace orvelle {

/// Finds places by their name, for the user to save.
class LocationSearch {
public:
    explicit LocationSearch(Platform& platform = Platform::shared());

    Published<std::vector<SavedLocation>> locationSearchResults;
    Published<bool> isSearching{false};
    Published<bool> foundNothing{false}; ///< the service knows no such place

    /// Empties the results, ends the search that was under way, and fills the results when the
    /// answer comes; a search that fails leaves them empty. Nothing is asked for a blank text.
    void searchLocation(std::string_view text);

private:
    Platform& platform_;
    const ServiceRoots roots_ = ServiceRoots::fromEnvironment();
    Subscription request_;
};

} // namespace orvelle
