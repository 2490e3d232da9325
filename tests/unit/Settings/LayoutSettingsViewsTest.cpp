#include "Settings/HoverLayoutSettingsView.h"
#include "Settings/PanelOrderSettingsView.h"
#include "Settings/SettingsView.h"
#include "Support/AppFixture.h"
#include "Views/Components/FormLook.h"

namespace orvelle {
namespace {

using Ids = std::vector<std::string>;
using Zone = HoverWidgetPosition;

class LayoutSettingsViewsTest : public AppFixture {
protected:
    HoverLayoutSettingsView widgets{app.hoverLayoutManager, app.themeManager, &app.settingsUndo};
    PanelOrderSettingsView panels{app.panelOrderManager, app.themeManager, &app.settingsUndo};

    template <class Rows>
    static Ids ids(const Rows& rows) {
        Ids ids;
        for (const auto& row : rows)
            ids.push_back(row.id);
        return ids;
    }
    Ids in(Zone zone) { return ids(widgets.rows(zone)); }
};

TEST_F(LayoutSettingsViewsTest, TheWindowHasFiveTabs) {
    std::vector<std::string_view> titles, symbols;
    for (const auto& tab : SettingsView::tabs()) {
        titles.push_back(tab.title);
        symbols.push_back(tab.symbol);
    }
    EXPECT_EQ(titles, (std::vector<std::string_view>{"General", "Appearance", "Features",
                                                     "Hover Bar", "Panels"}));
    EXPECT_EQ(symbols, (std::vector<std::string_view>{"gear", "paintbrush", "square.grid.2x2",
                                                      "rectangle.split.3x1", "list.number"}));
    EXPECT_EQ(SettingsView::width, 500);
    EXPECT_EQ(SettingsView::height, 500);
}

TEST_F(LayoutSettingsViewsTest, TheZonesStandInOrderWithAllTheirWidgets) {
    std::vector<std::string_view> names;
    for (const auto zone : allHoverWidgetPositions)
        names.push_back(HoverLayoutSettingsView::zoneName(zone));
    EXPECT_EQ(names, (std::vector<std::string_view>{"Left Wing", "Right Wing", "Bottom Row"}));
    EXPECT_EQ(in(Zone::rightWing), (Ids{"weather", "battery"}));
    EXPECT_EQ(in(Zone::bottomRow).size(), 8u) << "hidden ones included";
}

TEST_F(LayoutSettingsViewsTest, AHiddenWidgetIsDrawnSecondary) {
    const auto rows = widgets.rows(Zone::bottomRow);
    EXPECT_FALSE(rows[0].isVisible);
    EXPECT_EQ(rows[0].symbol, (StyledSymbol{"tray.fill", 12, FormLook::secondaryColor}));
    EXPECT_EQ(rows[0].name.style.color, FormLook::secondaryColor);
    EXPECT_EQ(rows[1].symbol, (StyledSymbol{"clock", 12, app.themeManager.accentColor()}));
    EXPECT_EQ(rows[1].name, (StyledText{"Clock", {12, FontWeight::regular, FormLook::textColor}}));
}

TEST_F(LayoutSettingsViewsTest, AnUnknownWidgetAndAnUnknownPanelHaveAQuestionMark) {
    app.hoverLayoutManager.placements.update([](auto& list) {
        list.push_back({"sundial", Zone::leftWing, 9, true});
    });
    app.panelOrderManager.panelOrder.update([](auto& list) { list.push_back({"tea", 99, true}); });
    EXPECT_EQ(widgets.rows(Zone::leftWing).back().symbol.name, "questionmark");
    EXPECT_EQ(panels.rows().back().symbol.name, "questionmark");
    EXPECT_EQ(panels.rows().back().label.text, "tea");
    EXPECT_EQ(panels.rows().front().label.text, "Media");
    EXPECT_EQ(panels.rows().front().symbol.name, "music.note");
}

TEST_F(LayoutSettingsViewsTest, AWidgetMovedByItsPickerStandsAtTheEndWithHiddenOnesCounted) {
    app.hoverLayoutManager.toggleVisibility("battery");
    widgets.changeZone("media", Zone::rightWing);
    EXPECT_EQ(in(Zone::rightWing), (Ids{"weather", "battery", "media"}));
    EXPECT_TRUE(in(Zone::leftWing).empty());
    widgets.changeZone("media", Zone::bottomRow);
    EXPECT_EQ(in(Zone::bottomRow).back(), "media");
}

TEST_F(LayoutSettingsViewsTest, ADraggedWidgetStandsWhereItWasLetGo) {
    widgets.move(Zone::bottomRow, 0, 2);
    EXPECT_EQ(in(Zone::bottomRow)[2], "fileShelf");
    widgets.move(Zone::bottomRow, 2, 1);
    EXPECT_EQ(in(Zone::bottomRow)[1], "fileShelf");
    const auto before = in(Zone::bottomRow);
    widgets.move(Zone::bottomRow, 7, 8);
    widgets.move(Zone::bottomRow, 99, 0);
    EXPECT_EQ(in(Zone::bottomRow), before);
}

TEST_F(LayoutSettingsViewsTest, AWidgetsSwitchSetsWhetherItIsShown) {
    widgets.setVisible("media", false);
    widgets.setVisible("media", false);
    EXPECT_FALSE(widgets.rows(Zone::leftWing)[0].isVisible);
    widgets.setVisible("media", true);
    EXPECT_TRUE(widgets.rows(Zone::leftWing)[0].isVisible);
    widgets.setVisible("nobody", true);
}

TEST_F(LayoutSettingsViewsTest, PanelsAreDraggedAndHiddenByTheirEye) {
    panels.move(0, 3);
    EXPECT_EQ(panels.rows()[3].id, "media");
    panels.toggleVisibility("media");
    const auto row = panels.rows()[3];
    EXPECT_FALSE(row.isVisible);
    EXPECT_EQ(row.eye.name, "eye.slash");
    EXPECT_EQ(row.help, "Show panel");
    EXPECT_EQ(row.label.style.color, FormLook::secondaryColor);
    EXPECT_EQ(panels.rows()[0].help, "Hide panel");
    EXPECT_EQ(panels.rows()[0].symbol.color, app.themeManager.accentColor());
    panels.move(12, 13);
    EXPECT_EQ(panels.rows().size(), 13u);
}

TEST_F(LayoutSettingsViewsTest, ResettingOneLayoutDoesNotTouchTheOther) {
    widgets.setVisible("media", false);
    panels.toggleVisibility("media");
    panels.reset();
    EXPECT_TRUE(panels.rows()[0].isVisible);
    EXPECT_FALSE(widgets.rows(Zone::leftWing)[0].isVisible);
    panels.toggleVisibility("media");
    widgets.reset();
    EXPECT_TRUE(widgets.rows(Zone::leftWing)[0].isVisible);
    EXPECT_FALSE(panels.rows()[0].isVisible);
}

TEST_F(LayoutSettingsViewsTest, AMoveToItsOwnPlaceOrBeyondTheListIsNone) {
    const int writes = defaults().writeCount();
    const auto rows = in(Zone::bottomRow).size();
    const std::pair<std::size_t, std::size_t> none[] = {
        {0, 0}, {rows, 0}, {0, rows}, {rows, rows + 1}, {rows + 1, rows}};
    for (const auto& [from, to] : none)
        widgets.move(Zone::bottomRow, from, to);
    const auto panelCount = app.panelOrderManager.panelOrder->size();
    const std::pair<std::size_t, std::size_t> noPanel[] = {
        {0, 0}, {panelCount, 0}, {0, panelCount}, {panelCount, panelCount + 1}};
    for (const auto& [from, to] : noPanel)
        panels.move(from, to);
    EXPECT_EQ(defaults().writeCount(), writes);
}

} // namespace
} // namespace orvelle
