#include "Extensions/ColorTheme.h"
#include "Features/Clipboard/ClipboardHistoryView.h"
#include "Features/StockTicker/StockTickerExpandedView.h"
#include "Views/Components/EntryList.h"
#include "Views/Components/FormLook.h"
#include "Views/Qt/Style.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace orvelle {

/// By the formula of the Web Content Accessibility Guidelines.
class ContrastTest : public testing::Test {
protected:
    static Color over(const Color& ground, const Color& above) {
        return ground.mixed(above.withAlpha(1), above.alpha);
    }
    static double luminance(const Color& color) {
        const auto linear = [](double level) {
            return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) +
               0.0722 * linear(color.blue);
    }
    static double contrast(const Color& ground, const Color& above) {
        const double one = luminance(ground);
        const double other = luminance(over(ground, above));
        return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
    }
};

TEST_F(ContrastTest, blackAndWhiteAreTwentyOneToOne) {
    EXPECT_NEAR(contrast(colors::black, colors::white), 21, 0.001);
    EXPECT_NEAR(contrast(colors::black, Color::white(1, 0.5)),
                contrast(colors::black, Color::white(0.5)), 0.001);
}

TEST_F(ContrastTest, focusEdgesStandOutOnEveryGround) {
    for (const auto& ground :
         {colors::black, over(colors::black, EntryList::rowBackground),
          over(colors::black, ClipboardHistoryView::searchBackground), notchSurface,
          FormLook::windowColor, FormLook::groupColor, FormLook::controlColor})
        EXPECT_GE(contrast(ground, PopupStyle::focusColor), 3) << ground.red;
}

TEST_F(ContrastTest, faintTextsCanBeReadOnRowsAndInFields) {
    for (const auto& ground :
         {colors::black, over(colors::black, EntryList::rowBackground),
          over(colors::black, StockTickerExpandedView::rowBackground),
          over(colors::black, ClipboardHistoryView::ClipboardItemRow::hoverColor),
          over(colors::black, ClipboardHistoryView::searchBackground)}) {
        EXPECT_GE(contrast(ground, EntryList::promptColor), 4.5);
        EXPECT_GE(contrast(ground, ClipboardHistoryView::promptColor), 4.5);
    }
}

} // namespace orvelle
