#include "Features/Clipboard/ClipboardSearch.h"

#include "Foundation/Text.h"
#include "Models/ClipboardItem.h"
#include "Platform/Formatting.h"
#include "Platform/RunLoop.h"

#include <algorithm>
#include <utility>

namespace orvelle {

ClipboardSearch::Content::Content(SharedText text, std::string locale)
    : preparation([this, text = std::move(text), locale = std::move(locale)] {
          auto folded = Text::folded(text, locale);
          comparable = folded == text.get() ? text : SharedText(std::move(folded));
      }) {}

std::shared_ptr<ClipboardSearch::Content> ClipboardSearch::content(const ClipboardItem& item) {
    auto& known = contents_[item.id];
    if (!known)
        known = std::make_shared<Content>(item.content, platform_.formatting().locale());
    return known;
}

void ClipboardSearch::follow(const std::vector<ClipboardItem>& items) {
    std::erase_if(contents_, [&](const auto& known) {
        return std::ranges::none_of(
            items, [&](const ClipboardItem& item) { return item.id == known.first; });
    });
    for (const auto& item : items) {
        if (contents_.contains(item.id))
            continue;
        // It goes on without its handle: nobody waits for the news.
        const auto handle = platform_.runLoop().detach(
            [added = content(item)] { added->preparation.run(); }, [] {});
    }
}

std::string ClipboardSearch::prepared(std::string_view searchText) const {
    return Text::folded(searchText, platform_.formatting().locale());
}

bool ClipboardSearch::contains(const ClipboardItem& item, std::string_view wanted) {
    const auto searched = content(item);
    searched->preparation.complete();
    return Text::contains(searched->comparable, wanted);
}

} // namespace orvelle
