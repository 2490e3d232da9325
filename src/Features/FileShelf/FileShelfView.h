#pragma once

#include "App/Constants.h"
#include "Extensions/ColorTheme.h"
#include "Foundation/Date.h"
#include "Foundation/Subscription.h"
#include "Foundation/UUID.h"
#include "Platform/Platform.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/Stroke.h"
#include "Views/Components/TextStyle.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orvelle {

class FileShelfManager;
class UndoOffer;
struct ShelfItem;

/// A file of the grid: its icon over its name. Lengths are points.
struct ShelfItemCell {
    static constexpr double cellSpacing = 4; ///< between icon and name
    static constexpr double cellPadding = 4; ///< on all sides
    static constexpr double iconSize = AppConstants::FileShelf::iconSize;
    static constexpr double nameWidth = 60; ///< at most; longer names lose their middle
    static constexpr double nameSize = 10;

    UUID id;
    std::string icon; ///< for `FileIcons::picture`
    StyledText name;
    bool operator==(const ShelfItemCell&) const = default;
};

/// As many equal columns as fit, none narrower than `minimum`. Lengths are points.
struct AdaptiveColumns {
    double minimum;
    double spacing;

    int count(double width) const;
    double columnWidth(double width) const;
};

/// The shelf's panel: a grid of files, or the place to drop them. Lengths are points.
class FileShelfView {
public:
    /// What a program that takes a dragged file is given.
    struct ItemProvider {
        std::string url;
        std::string suggestedName;
        bool operator==(const ItemProvider&) const = default;
    };
    /// Something dropped, which may turn out to be a file.
    struct DroppedProvider {
        struct URL {
            std::string url;
        };
        struct DataRepresentation {
            std::string bytes;
        };
        using Item = std::variant<std::monostate, URL, DataRepresentation>;

        /// Hands the item to `loaded`, on whichever thread and at whichever time.
        std::function<void(std::function<void(Item)> loaded)> loadItem;
    };

    /// With `undo` a file that is removed is not seen any more, and gone with the offer.
    explicit FileShelfView(FileShelfManager& manager, Platform& platform = Platform::shared(),
                           UndoOffer* undo = nullptr);

    static constexpr AdaptiveColumns columns{60, 8};
    static constexpr double gridSpacing = 12; ///< between rows
    static constexpr double gridPadding = 8;  ///< on the left and right
    static constexpr double spacing = 8;      ///< between the grid and the button
    static constexpr double shareAllBottomPadding = 4;
    static constexpr Seconds removalDuration = 0.2; ///< eased in and out

    static constexpr double emptySpacing = 4;
    static constexpr double emptyHeight = 80;
    static constexpr double emptyPadding = 12; ///< on all sides
    static constexpr double emptyCornerRadius = 8;
    static constexpr double emptyLineWidth = 1; ///< inside the bounds
    static constexpr double emptyDash = 6;      ///< and as long between two dashes

    bool isEmpty() const;
    StyledSymbol emptySymbol() const;
    StyledText emptyText() const;
    /// The line around the place to drop on; brighter while something is dragged over the panel.
    Color dropOutlineColor(bool isDragSessionActive) const;

    /// In the order of adding.
    std::vector<ShelfItemCell> cells() const;
    StyledSymbol shareAllSymbol() const;
    StyledText shareAllText() const;
    void shareAll();

    // What can be done with one file. An id that is no longer on the shelf does nothing.
    void open(UUID id);
    void showInFinder(UUID id);
    void copy(UUID id);
    void share(UUID id);
    void remove(UUID id);
    std::vector<MenuEntry> contextMenu(UUID id) const;
    std::optional<ItemProvider> dragItem(UUID id) const;

    /// Takes what is dropped on the panel. True when there is anything, whether or not it then
    /// turns out to be a file. What other programs drag reaches the shelf by way of the window.
    bool handleDrop(const std::vector<DroppedProvider>& providers);
    /// The keyboard's way to drop: takes the files that were copied. A handle that dies calls it
    /// off.
    [[nodiscard]] Subscription paste();

private:
    /// Without what is held back.
    std::vector<const ShelfItem*> items() const;
    const ShelfItem* item(UUID id) const;

    FileShelfManager& manager_;
    Platform& platform_;
    UndoOffer* undo_;
};

} // namespace orvelle
