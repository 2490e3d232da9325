#pragma once

#include "Core/RemovedRecords.h"
#include "Features/Clipboard/ClipboardSearch.h"
#include "Models/ClipboardItem.h"
#include "Platform/FrontmostApplication.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"
#include "Protocols/PluginProtocol.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// The texts that were copied, kept in memory only.
class ClipboardManager : public FeatureModule {
public:
    static constexpr Seconds pollInterval = 0.5;
    static constexpr std::size_t maximumItems = 48;
    static constexpr double defaultMaximumAge = 24; ///< hours

    explicit ClipboardManager(Platform& platform = Platform::shared());

    Published<std::vector<ClipboardItem>> items; ///< newest first
    Timer pollTimer;
    std::int64_t lastChangeCount = 0; ///< the pasteboard's at the last look

    /// What is on the pasteboard already is not captured.
    void start() override;
    /// One look at the pasteboard, as the timer takes it.
    void checkForChanges();

    /// Puts the text on the pasteboard, without capturing it, and the item to the top of the list.
    void copyToClipboard(const ClipboardItem& item);
    /// What of the list has the text in its content, whatever the case; all without a text.
    std::vector<ClipboardItem> itemsContaining(std::string_view text);
    /// Every item with the same identifier.
    void deleteItem(const ClipboardItem& item);
    /// The oldest go where there is no room for all.
    void restore(const RemovedRecords<ClipboardItem>& removed);

private:
    void capture(std::string text, const std::optional<ApplicationIdentity>& source);
    void pruneExpiredItems(std::vector<ClipboardItem>& list) const;

    Platform& platform_;
    Subscription reading_;
    ClipboardSearch search_;
    Subscription searchFollows_;
};

} // namespace orvelle
