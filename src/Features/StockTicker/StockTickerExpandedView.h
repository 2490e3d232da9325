#pragma once

#include "Foundation/Color.h"
#include "Foundation/Date.h"
#include "Models/StockTicker.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/MenuEntry.h"
#include "Views/Components/ProgressSpinner.h"
#include "Views/Components/SwipeAction.h"
#include "Views/Components/TextStyle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class StockTickerManager;
enum class QuoteFailure;

/// One row of the list: the symbol over the company's name, and at the trailing edge the price over
/// its change. Until there is a quote a spinner stands there, or a word once the answer brought
/// none.
struct StockTickerRowContent {
    struct Figures {
        StyledText price;
        StyledText change;
        bool operator==(const Figures&) const = default;
    };

    StockTickerRowContent(const StockTicker& ticker, const std::optional<StockQuote>& quote,
                          std::optional<QuoteFailure> failure = {});

    /// Without a text: as high as those of a quote.
    static Figures blankFigures();

    std::string id;
    StyledText symbol;
    std::optional<StyledText> name;
    std::optional<Figures> figures;
    std::optional<StyledText> missing; ///< says that no quote came
    bool operator==(const StockTickerRowContent&) const = default;

    static constexpr double spacing = 8; ///< points, as all of these
    static constexpr double horizontalPadding = 4;
    static constexpr double verticalPadding = 3;
    static constexpr double lineSpacing = 1;
    static constexpr ProgressSpinner spinner{.scale = 0.6, .frame = 20};
};

/// The stocks' panel: a field to add symbols over the list of quotes. Lengths are points.
class StockTickerExpandedView {
public:
    explicit StockTickerExpandedView(StockTickerManager& manager) : manager_(manager) {}

    static constexpr double spacing = 6;
    static constexpr double fieldHorizontalPadding = 8;
    static constexpr double fieldVerticalPadding = 5;
    static constexpr Color rowBackground = Color::white(1, 0.06);
    static constexpr double rowInset = 2;     ///< above and below each row
    static constexpr double rowSideInset = 4; ///< at its sides
    static constexpr Seconds removalDuration = 0.15;

    StyledText fieldPlaceholder() const;
    /// Of what is typed.
    TextStyle fieldStyle() const;
    StyledSymbol addButton() const;
    /// The button's switch.
    bool canAdd(std::string_view text) const;
    void addTicker(std::string_view text);

    /// Instead of the list, while it is empty.
    std::optional<FilePlaceholder> placeholder() const;
    std::vector<StockTickerRowContent> rows() const;
    /// What a row does when it is pulled from its trailing side.
    SwipeAction deleteAction() const;
    /// Nothing for an identifier that is not in the list.
    void remove(std::string_view id);
    std::vector<MenuEntry> contextMenu() const;

private:
    StockTickerManager& manager_;
};

} // namespace orvelle
