#pragma once

#include "Extensions/ColorTheme.h"
#include "Foundation/Date.h"
#include "Foundation/UUID.h"
#include "Models/Symbol.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/SwipeAction.h"
#include "Views/Components/TextStyle.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// A panel of a field for new entries over the list of those that there are. Lengths are points.
class EntryList {
public:
    enum class ButtonPlace { beforeText, behindText };
    struct Row {
        UUID id;
        StyledText text;
        bool isStruckThrough = false;
        StyledSymbol button; ///< does what the leading swipe does
        ButtonPlace buttonPlace = ButtonPlace::beforeText;
        std::string_view help; ///< of the button
        SwipeAction leading;
        SwipeAction trailing;
        bool operator==(const Row&) const = default;
    };

    static constexpr TextStyle fieldStyle{12, FontWeight::regular, colors::white};
    static constexpr Color promptColor = notchFaint;
    static constexpr double fieldHorizontalPadding = 8;
    static constexpr double fieldVerticalPadding = 5;
    static constexpr StyledSymbol addButton{"plus.circle.fill"_symbol, 16, colors::mint};
    static constexpr Color rowBackground = Color::white(1, 0.06);
    static constexpr Seconds focusDelay = 0.1;       ///< from appearing to the field's focus
    static constexpr Seconds removalDuration = 0.15; ///< eased in and out

    virtual ~EntryList() = default;

    /// What stands in the empty field.
    virtual std::string_view prompt() const = 0;
    virtual FilePlaceholder emptyState() const = 0;
    virtual std::vector<Row> rows() const = 0;
    virtual std::vector<MenuEntry> contextMenu() const = 0;

    /// Whether there is something to add in this text.
    static bool canAdd(std::string_view text);
    virtual void add(std::string_view text) = 0;
    virtual void performLeading(UUID id) = 0;
    /// What is said once the leading action was performed; nothing where the list shows it.
    virtual std::string_view leadingDone() const { return {}; }
    virtual void performTrailing(UUID id) = 0;

protected:
    static FilePlaceholder emptyState(std::string title, std::string_view symbol);
    static SwipeAction deleteAction();
};

} // namespace orvelle
