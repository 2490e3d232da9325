#pragma once

#include "Extensions/ColorTheme.h"
#include "Foundation/Date.h"
#include "Models/ClipboardItem.h"
#include "Platform/Platform.h"
#include "Views/Components/EntryList.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/TextStyle.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class ClipboardManager;
class UndoOffer;

/// The clipboard's panel: a search field over the texts that were copied. Lengths are points.
class ClipboardHistoryView {
public:
    /// What shows of one item: a symbol, beside it the text over source and age, and two buttons
    /// while the pointer rests on it.
    struct ClipboardItemRow {
        static constexpr double spacing = 8;
        static constexpr double horizontalPadding = 8;
        static constexpr double verticalPadding = 6;
        static constexpr double cornerRadius = 6;
        static constexpr double symbolWidth = 18;
        static constexpr double textSpacing = 2;
        static constexpr double detailSpacing = 4;
        static constexpr double buttonOpacity = 0.7;
        static constexpr Color hoverColor = Color::white(1, 0.08);
        static constexpr Seconds hoverDuration = 0.15; ///< eased out

        UUID id;
        StyledSymbol type;
        StyledText preview;
        std::vector<StyledText> details; ///< source, separator, age
        StyledSymbol copyButton;
        StyledSymbol deleteButton;
        bool operator==(const ClipboardItemRow&) const = default;
    };

    explicit ClipboardHistoryView(ClipboardManager& manager,
                                  Platform& platform = Platform::shared(),
                                  UndoOffer* undo = nullptr)
        : manager_(manager), undo_(undo), platform_(platform) {}

    static constexpr double spacing = 8;
    static constexpr double searchPadding = 8;
    static constexpr double searchCornerRadius = 8;
    /// Said once a text was copied back.
    static constexpr std::string_view copied = "Copied";
    static constexpr Color searchBackground = Color::white(1, 0.08);
    static constexpr TextStyle searchStyle{12, FontWeight::regular, colors::white};
    static constexpr Color promptColor = notchFaint;
    static constexpr std::string_view searchPrompt = "Search clipboard...";
    static constexpr Seconds focusDelay = EntryList::focusDelay;
    static constexpr Seconds deletionDuration = 0.2; ///< eased out

    std::string searchText;

    StyledSymbol searchSymbol() const;
    FilePlaceholder emptyStateView() const;
    /// The items whose content contains the search text, whatever the case; all without one.
    std::vector<ClipboardItem> filteredItems() const;
    std::vector<ClipboardItemRow> rows() const;

    void copy(UUID id);
    void remove(UUID id);

private:
    ClipboardItemRow row(const ClipboardItem& item) const;

    ClipboardManager& manager_;
    UndoOffer* undo_;
    Platform& platform_;
};

} // namespace orvelle
