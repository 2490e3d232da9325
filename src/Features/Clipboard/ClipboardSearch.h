#pragma once

#include "Foundation/Errand.h"
#include "Foundation/SharedText.h"
#include "Foundation/UUID.h"
#include "Platform/Platform.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

struct ClipboardItem;

/// The contents of the history as a search compares them: prepared in the background as they come,
/// since a history may be long and a key wants its answer at once. Main thread only.
class ClipboardSearch {
public:
    explicit ClipboardSearch(Platform& platform) : platform_(platform) {}

    /// Prepares what is new here, and forgets what is not here any more.
    void follow(const std::vector<ClipboardItem>& items);
    /// A search text, made comparable.
    std::string prepared(std::string_view searchText) const;
    /// Whether the content has `wanted`, which is prepared, in it. What the background has not come
    /// to yet is prepared on the spot.
    bool contains(const ClipboardItem& item, std::string_view wanted);

private:
    struct Content {
        explicit Content(SharedText text, std::string locale);
        SharedText comparable; ///< once the errand is done
        Errand<void> preparation;
    };

    std::shared_ptr<Content> content(const ClipboardItem& item);

    Platform& platform_;
    std::map<UUID, std::shared_ptr<Content>> contents_;
};

} // namespace orvelle
