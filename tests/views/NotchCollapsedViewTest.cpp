#include "views/ViewFixture.h"

#include <QAccessible>

namespace orvelle {

namespace {

CalendarEventModel eventAt(Date start, std::string title) {
    CalendarEventModel event;
    event.id = title;
    event.title = std::move(title);
    event.startDate = start;
    event.endDate = start + 3600;
    return event;
}

} // namespace

class NotchCollapsedViewTest : public ViewFixture {
protected:
    void place(const std::string& id, HoverWidgetPosition zone, bool isVisible = true) {
        hoverLayout.placements.update([&](auto& placements) {
            for (auto& placement : placements)
                if (placement.id == id) {
                    placement.zone = zone;
                    placement.isVisible = isVisible;
                }
        });
    }
    void hideAll() {
        hoverLayout.placements.update([](auto& placements) {
            for (auto& placement : placements)
                placement.isVisible = false;
        });
    }
    QString firstText(const QString& widget) {
        const auto* text = childOf(widget, QStringLiteral("text"));
        return text ? text->property("text").toString() : QString();
    }
    void clickAt(const QQuickItem* part) {
        const auto at = part->mapToScene(part->boundingRect().center());
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
    }
    QQuickItem* childOf(const QString& widget, const QString& name) {
        return ViewFixture::item(item(widget), name);
    }
};

TEST_F(NotchCollapsedViewTest, nothingIsLoadedWhileCollapsed) {
    show(NotchExpandedState::collapsed);
    EXPECT_EQ(item("hoverBar"), nullptr);
    EXPECT_EQ(item("expandedContent"), nullptr);
}

TEST_F(NotchCollapsedViewTest, theBarIsGoneAgainAfterTheNotchClosed) {
    show(NotchExpandedState::hovering);
    ASSERT_NE(item("hoverBar"), nullptr);
    show(NotchExpandedState::collapsed);
    EXPECT_TRUE(eventually([&] { return item("hoverBar") == nullptr; }));
}

TEST_F(NotchCollapsedViewTest, batteryTextFollowsTheManager) {
    battery.batteryLevel = 87;
    show(NotchExpandedState::hovering);
    EXPECT_EQ(firstText("widget.battery"), "87%");
    battery.batteryLevel = 86;
    turn();
    EXPECT_EQ(firstText("widget.battery"), "86%");
    battery.hasBattery = false;
    turn();
    EXPECT_EQ(firstText("widget.battery"), "AC");
}

TEST_F(NotchCollapsedViewTest, wingsStandBesideTheNotch) {
    battery.batteryLevel = 87;
    MediaInfo info;
    info.title = "A title that is much too long for any wing of the hover bar";
    media.currentMedia = info;
    show(NotchExpandedState::hovering);
    const double middle = root->width() / 2;
    EXPECT_LE(frameOf("widget.media").right(), middle - 94);
    EXPECT_GE(frameOf("widget.battery").left(), middle + 94);
    EXPECT_LE(frameOf("widget.battery").right(), frameOf("shape").right());
    EXPECT_GE(frameOf("widget.media").left(), frameOf("shape").left() + 8);
}

TEST_F(NotchCollapsedViewTest, widgetsOfARowDoNotOverlap) {
    show(NotchExpandedState::hovering);
    const auto clock = frameOf("widget.time");
    const auto system = frameOf("widget.systemStats");
    EXPECT_GT(clock.width(), 40);
    EXPECT_GE(system.left(), clock.right());
}

TEST_F(NotchCollapsedViewTest, separatorsStandBetweenWidgetsOnly) {
    hideAll();
    place("time", HoverWidgetPosition::bottomRow);
    place("weather", HoverWidgetPosition::bottomRow); // has no place name, so shows nothing
    show(NotchExpandedState::hovering);
    EXPECT_EQ(item("separator"), nullptr);
    place("battery", HoverWidgetPosition::bottomRow);
    settle();
    const auto* separator = item("separator");
    ASSERT_NE(separator, nullptr);
    EXPECT_EQ(separator->size(), QSizeF(1, 10));
    EXPECT_EQ(separator->property("color").value<QColor>().rgba(), qRgba(255, 255, 255, 38));
}

TEST_F(NotchCollapsedViewTest, aWingWidgetWithoutContentLeavesNoGap) {
    hideAll();
    place("battery", HoverWidgetPosition::rightWing);
    show(NotchExpandedState::hovering);
    const auto alone = frameOf("widget.battery");
    place("weather", HoverWidgetPosition::rightWing); // before it, and without content
    settle();
    EXPECT_EQ(item("widget.weather"), nullptr);
    EXPECT_EQ(frameOf("widget.battery"), alone);
}

TEST_F(NotchCollapsedViewTest, noBottomRowWithoutItsContent) {
    hideAll();
    place("weather", HoverWidgetPosition::bottomRow); // has no place name, so shows nothing
    show(NotchExpandedState::hovering);
    EXPECT_EQ(item("widget.weather"), nullptr);
    EXPECT_EQ(item("bottomRow")->width(), 0);
}

TEST_F(NotchCollapsedViewTest, aLongTitleIsCutAtItsEnd) {
    hideAll();
    place("calendar", HoverWidgetPosition::leftWing);
    calendar.events = {eventAt(platform.runLoopPort.now() + 600,
                               "Quarterly planning with everybody who could possibly be there")};
    show(NotchExpandedState::hovering);
    auto* title = childOf("widget.calendar", "text");
    ASSERT_NE(title, nullptr);
    EXPECT_TRUE(title->property("truncated").toBool());
    EXPECT_LE(frameOf("widget.calendar").right(), root->width() / 2 - 94);
}

TEST_F(NotchCollapsedViewTest, titlesOfOneZoneShareTheLackOfRoom) {
    hideAll();
    place("calendar", HoverWidgetPosition::leftWing);
    place("media", HoverWidgetPosition::leftWing);
    const std::string title = "A title that is much too long for any wing of the hover bar";
    calendar.events = {eventAt(platform.runLoopPort.now() + 600, title)};
    media.currentMedia.update([&](auto& info) { info.title = title; });
    show(NotchExpandedState::hovering);
    const double room = frameOf("leftWing").width();
    const auto event = frameOf("widget.calendar");
    const auto track = frameOf("widget.media");
    EXPECT_NEAR(event.width() + 4 + track.width(), room, 0.01) << "nothing is given away";
    const double eventTitle = childOf("widget.calendar", "text")->width();
    EXPECT_GT(eventTitle, 0);
    EXPECT_NEAR(eventTitle, childOf("widget.media", "text")->width(), 0.01);
}

TEST_F(NotchCollapsedViewTest, aShortTitleIsNotCutForALongOne) {
    hideAll();
    place("calendar", HoverWidgetPosition::leftWing);
    place("media", HoverWidgetPosition::leftWing);
    calendar.events = {eventAt(platform.runLoopPort.now() + 600, "Tea")};
    media.currentMedia.update([&](auto& info) {
        info.title = "A title that is much too long for any wing of the hover bar";
    });
    show(NotchExpandedState::hovering);
    EXPECT_FALSE(childOf("widget.calendar", "text")->property("truncated").toBool());
    EXPECT_TRUE(childOf("widget.media", "text")->property("scrolls").toBool());
}

TEST_F(NotchCollapsedViewTest, noWidthIsBelowNothing) {
    hideAll();
    for (const char* id : {"battery", "time", "systemStats", "calendar", "media"})
        place(id, HoverWidgetPosition::leftWing);
    systemMonitor.isEnabled = true;
    calendar.events = {eventAt(platform.runLoopPort.now() + 600, "Rehearsal of the choir")};
    media.currentMedia.update([&](auto& info) { info.title = "Aria"; });
    notchState.notchSize = Size{520, 32}; // leaves the wings next to nothing
    show(NotchExpandedState::hovering);
    for (const char* id : {"widget.calendar", "widget.media"}) {
        EXPECT_GE(frameOf(id).width(), 0) << id;
        EXPECT_GE(childOf(id, "text")->width(), 0) << id;
    }
}

TEST_F(NotchCollapsedViewTest, coverAndTitleOfWhatPlaysOpenItsPanel) {
    for (const char* part : {"cover", "text"}) {
        media.currentMedia.update([](auto& info) { info.title = "Aria"; });
        notchState.activePanel = ActivePanel::time;
        show(NotchExpandedState::hovering);
        const auto* target = childOf("widget.media", part);
        ASSERT_NE(target, nullptr) << part;
        clickAt(target);
        EXPECT_EQ(notchState.expandedState, NotchExpandedState::expanded) << part;
        EXPECT_EQ(notchState.activePanel, ActivePanel::media) << part;
    }
}

TEST_F(NotchCollapsedViewTest, thePlayButtonPlaysAndOpensNothing) {
    media.currentMedia.update([](auto& info) { info.title = "Aria"; });
    show(NotchExpandedState::hovering);
    auto* button = childOf("widget.media", "playButton");
    ASSERT_NE(button, nullptr);
    clickAt(button);
    EXPECT_TRUE(media.currentMedia->isPlaying);
    auto* spoken = QAccessible::queryAccessibleInterface(button);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Pause");
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    turn();
    EXPECT_FALSE(media.currentMedia->isPlaying);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Play");
    EXPECT_EQ(notchState.expandedState, NotchExpandedState::hovering);
}

TEST_F(NotchCollapsedViewTest, clickOnAWidgetOpensItsPanel) {
    show(NotchExpandedState::hovering);
    click("widget.battery");
    EXPECT_EQ(notchState.expandedState, NotchExpandedState::expanded);
    EXPECT_EQ(notchState.activePanel, ActivePanel::battery);
}

TEST_F(NotchCollapsedViewTest, clickOnAWidgetKeepsThePanelWhenItDoesNotNavigate) {
    notchState.clickWidgetNavigatesToPanel = false;
    notchState.activePanel = ActivePanel::notes;
    show(NotchExpandedState::hovering);
    click("widget.battery");
    EXPECT_EQ(notchState.expandedState, NotchExpandedState::expanded);
    EXPECT_EQ(notchState.activePanel, ActivePanel::notes);
}

TEST_F(NotchCollapsedViewTest, clickBesideTheWidgetsOpensThePanelThatWasActive) {
    notchState.activePanel = ActivePanel::time;
    show(NotchExpandedState::hovering);
    click("leftWing");
    EXPECT_EQ(notchState.expandedState, NotchExpandedState::expanded);
    EXPECT_EQ(notchState.activePanel, ActivePanel::time);
}

TEST_F(NotchCollapsedViewTest, AFullRowLeavesTextsOutBeforeSymbolsAndStaysInItsRoom) {
    hideAll();
    for (const char* id : {"weather", "battery", "time", "notes", "fileShelf"})
        place(id, HoverWidgetPosition::rightWing);
    weather.weather.update([](auto& data) {
        data.locationName = "Oslo";
        data.temperature = 72;
    });
    for (int count = 0; count < 12; ++count)
        notes.addItem("note");
    notes.isEnabled = true;
    notchState.notchSize = Size{390, 32};
    show(NotchExpandedState::hovering);
    const auto wing = frameOf("rightWing");
    const auto isTextShown = [&](const QString& widget) {
        auto* text = item(item(QStringLiteral("widget.") + widget), QStringLiteral("text"));
        return text && text->isVisible();
    };
    EXPECT_FALSE(isTextShown("notes"));
    EXPECT_FALSE(isTextShown("battery"));
    int shown = 0;
    for (const char* id : {"weather", "battery", "time", "notes", "fileShelf"}) {
        auto* widget = item(QStringLiteral("widget.") + QLatin1String(id));
        if (!widget || !widget->isVisible())
            continue;
        ++shown;
        EXPECT_GE(frameOf(QStringLiteral("widget.") + QLatin1String(id)).left(), wing.left() - 0.5)
            << id;
    }
    EXPECT_GE(shown, 1);
    picture("hover-full");
}

} // namespace orvelle
