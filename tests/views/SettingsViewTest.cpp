#include "Settings/SettingsView.h"

#include "Features/UpdateChecker/UpdateChecker.h"
#include "Support/Replies.h"
#include "Views/Qt/Values.h"
#include "views/KeyboardWalk.h"
#include "views/ViewFixture.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QWheelEvent>

#include <algorithm>
#include <functional>
#include <vector>

namespace orvelle {
namespace {

class SettingsViewTest : public ViewFixture {
protected:
    SettingsViewTest() {
        QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/Orvelle/SettingsView.qml")));
        settings.reset(qobject_cast<QQuickItem*>(component.create()));
        EXPECT_NE(settings, nullptr) << component.errorString().toStdString();
        if (!settings)
            return;
        shell.resize(500, 500);
        settings->setParentItem(shell.contentItem());
        settings->setSize({500, 500});
        settings->setFocus(true);
        shell.show();
    }

    void choose(int tab) {
        settings->setProperty("current", tab);
        turn();
    }
    QQuickItem* chosenTab() {
        const auto index = settings->property("current").toUInt();
        const auto title = SettingsView::tabs().at(index).title;
        return find(QStringLiteral("tab.") + toQt(title));
    }
    QQuickItem* find(const QString& name) { return item(settings.get(), name); }
    /// The control of a row.
    QQuickItem* control(const QString& row) {
        auto* found = find(QStringLiteral("row.") + row);
        return item(found, QStringLiteral("control"));
    }
    void press(QQuickItem* at) {
        ASSERT_NE(at, nullptr);
        const auto middle = at->mapToScene(at->boundingRect().center());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isDown = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, middle, shell.mapToGlobal(middle), Qt::LeftButton,
                              isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&shell, &event);
        }
        turn();
    }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        keyboard.press(code, modifiers);
    }
    void mouse(QEvent::Type type, QPointF at) {
        QMouseEvent event(type, at, shell.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&shell, &event);
        turn();
    }
    bool isInSight(QQuickItem* row) {
        return row && find(QStringLiteral("page"))
                          ->mapRectToScene(find(QStringLiteral("page"))->boundingRect())
                          .contains(row->mapRectToScene(row->boundingRect()));
    }
    void wheelDown(int notches) {
        const QPointF middle(250, 300);
        QWheelEvent event(middle, shell.mapToGlobal(middle), {}, {0, -120 * notches}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&shell, &event);
    }
    void focus(QQuickItem* at) {
        ASSERT_NE(at, nullptr);
        at->forceActiveFocus(Qt::TabFocusReason);
    }
    std::optional<bool> stored(const char* name) {
        return platform.userDefaultsPort.storedBoolean(name);
    }
    QString focused() const {
        return shell.activeFocusItem() ? shell.activeFocusItem()->objectName() : QString();
    }

    UpdateChecker updateChecker{platform};
    UndoOffer settingsUndo{platform.runLoopPort};
    int reports = 0;
    ViewEngine engine{ViewEnvironment{
        environment,
        platform,
        {},
        SettingsEnvironment{environment, updateChecker, settingsUndo, [this] { ++reports; }},
        {}}};
    QQuickWindow shell;
    KeyboardWalk keyboard{shell};
    std::unique_ptr<QQuickItem> settings;
};

TEST_F(SettingsViewTest, EachTabShowsItsPage) {
    EXPECT_EQ(settings->implicitWidth(), 500);
    EXPECT_EQ(settings->implicitHeight(), 500);
    const char* rows[] = {"row.launchAtLogin", "row.animationSpeed", "row.mirrorEnabled",
                          "row.weather", "row.stockTicker"};
    for (int tab = 0; tab < 5; ++tab) {
        choose(tab);
        EXPECT_NE(find(QLatin1String(rows[tab])), nullptr) << rows[tab];
        picture("settings-" + std::to_string(tab), shell);
    }
}

TEST_F(SettingsViewTest, EveryControlHasANameForThoseWhoHearIt) {
    platform.userDefaultsPort.set("weatherEnabled", true);
    platform.userDefaultsPort.set("themeMode", std::string("custom"));
    weather.addSavedLocation({UUID::random(), "Oslo", 59.9, 10.7});
    for (int tab = 0; tab < 5; ++tab) {
        choose(tab);
        const auto controls = KeyboardWalk::controlsBelow(settings.get());
        EXPECT_GT(controls.size(), 5u);
        for (auto* each : controls)
            EXPECT_FALSE(KeyboardWalk::name(each).isEmpty())
                << each->metaObject()->className() << " on tab " << tab;
    }
}

TEST_F(SettingsViewTest, ASwitchAndASliderWriteTheirSettings) {
    press(control(QStringLiteral("showInMenuBar")));
    EXPECT_EQ(stored("showInMenuBar"), false);
    focus(control(QStringLiteral("scrollSensitivity")));
    key(Qt::Key_Right);
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 6);
    key(Qt::Key_End);
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 30);
    auto* row = find(QStringLiteral("row.scrollSensitivity"));
    EXPECT_EQ(textOf(row, QStringLiteral("value")), QStringLiteral("30"));
}

TEST_F(SettingsViewTest, APressRightAfterATurnOfTheWheelCounts) {
    auto* page = find(QStringLiteral("scroll"));
    wheelDown(2);
    EXPECT_EQ(page->property("contentY").toDouble(), 120);
    press(control(QStringLiteral("reverseScrollDirection")));
    EXPECT_EQ(stored("reverseScrollDirection"), true);
    wheelDown(100);
    EXPECT_EQ(page->property("contentY").toDouble(),
              page->property("contentHeight").toDouble() - page->height());
}

TEST_F(SettingsViewTest, ASliderSetByWhatReadsTheScreenWritesItsSetting) {
    auto* slider = control(QStringLiteral("scrollSensitivity"));
    auto* value = QAccessible::queryAccessibleInterface(slider)->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue(), 5);
    value->setCurrentValue(12);
    turn();
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 12);
    platform.userDefaultsPort.set("scrollSensitivity", 7.0);
    turn();
    EXPECT_EQ(value->currentValue(), 7);
}

TEST_F(SettingsViewTest, AFeatureThatGoesOffTakesItsRowsAlong) {
    choose(2);
    EXPECT_NE(find(QStringLiteral("row.fileShelfMaxItems")), nullptr);
    press(control(QStringLiteral("fileShelfEnabled")));
    EXPECT_EQ(stored("fileShelfEnabled"), false);
    EXPECT_EQ(find(QStringLiteral("row.fileShelfMaxItems")), nullptr);
}

/// How many things below `top` are painted in a colour: fills, texts and symbols.
int paintedIn(QQuickItem* top, const QColor& color) {
    int count = 0;
    const auto own = top->property("color");
    const auto content = top->property("content");
    if (top->isVisible() && own.isValid() && own.value<QColor>() == color)
        ++count;
    if (top->isVisible() && content.canConvert<SymbolValue>() &&
        content.value<SymbolValue>().color == color)
        ++count;
    for (auto* child : top->childItems())
        count += paintedIn(child, color);
    return count;
}

class ThemedPages : public SettingsViewTest {
protected:
    static constexpr Color red{1, 0, 0};
    static QColor custom() { return toQt(Color::hsb(0.5, 0.8, 0.9)); }
};

TEST_F(ThemedPages, EveryPageIsRecolouredAtOnceByAModeFromOutside) {
    platform.appearancePort.accent = red;
    platform.userDefaultsPort.set("customAccentHue", 0.5);
    for (int tab = 0; tab < static_cast<int>(SettingsView::tabs().size()); ++tab) {
        const auto name = SettingsView::tabs().at(static_cast<std::size_t>(tab)).title;
        platform.userDefaultsPort.set("themeMode", std::string("system"));
        choose(tab);
        auto* page = find(QStringLiteral("page"));
        EXPECT_TRUE(eventually([&] { return paintedIn(page, custom()) == 0; })) << name;
        const int before = paintedIn(page, toQt(red));
        EXPECT_GT(before, 0) << name;
        // A switch fades from one colour to the other.
        const auto becomes = [&](const QColor& color, const QColor& former) {
            return eventually([&] {
                return paintedIn(settings.get(), former) == 0 && paintedIn(page, color) >= before;
            });
        };
        platform.userDefaultsPort.set("themeMode", std::string("custom"));
        EXPECT_TRUE(becomes(custom(), toQt(red))) << name;
        platform.userDefaultsPort.set("customAccentHue", 0.25);
        EXPECT_TRUE(becomes(toQt(Color::hsb(0.25, 0.8, 0.9)), custom())) << name;
        platform.userDefaultsPort.set("customAccentSaturation", 0.5);
        EXPECT_TRUE(becomes(toQt(Color::hsb(0.25, 0.5, 0.9)), toQt(Color::hsb(0.25, 0.8, 0.9))))
            << name;
        platform.userDefaultsPort.remove("customAccentSaturation");
        platform.userDefaultsPort.set("customAccentHue", 0.5);
    }
}

TEST_F(SettingsViewTest, TheKeyboardLeadsFromTabToTab) {
    focus(find(QStringLiteral("tab.General")));
    key(Qt::Key_Right);
    EXPECT_EQ(focused(), QStringLiteral("tab.Appearance"));
    key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(focused(), QStringLiteral("tab.Features"));
    EXPECT_EQ(settings->property("current").toInt(), 2);
    key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(focused(), QStringLiteral("tab.Appearance"));
    key(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(focused(), QStringLiteral("tab.Panels"));
    key(Qt::Key_6, Qt::ControlModifier);
    EXPECT_EQ(focused(), QStringLiteral("tab.Panels"));
    key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(focused(), QStringLiteral("tab.Appearance"));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("control"));
}

TEST_F(SettingsViewTest, APickerChoosesByTheArrowKeys) {
    choose(1);
    focus(control(QStringLiteral("animationSpeed")));
    key(Qt::Key_Down);
    EXPECT_EQ(platform.userDefaultsPort.string("animationSpeed"), "fast");
}

TEST_F(SettingsViewTest, APickersListIsOpenedAndTakenFromByTheKeyboard) {
    choose(1);
    for (const auto opening : {Qt::Key_Return, Qt::Key_Space}) {
        platform.userDefaultsPort.set("animationSpeed", std::string("normal"));
        turn();
        auto* picker = control(QStringLiteral("animationSpeed"));
        auto* list = picker->property("popup").value<QObject*>();
        focus(picker);
        key(opening);
        EXPECT_TRUE(list->property("visible").toBool()) << opening;
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        EXPECT_FALSE(list->property("visible").toBool()) << opening;
        EXPECT_EQ(platform.userDefaultsPort.string("animationSpeed"), "fast") << opening;
    }
}

TEST_F(SettingsViewTest, TheKeyboardReachesEveryControlAndIsSeenThere) {
    platform.userDefaultsPort.set("weatherEnabled", true);
    platform.userDefaultsPort.set("clipboardEnabled", true);
    platform.userDefaultsPort.set("themeMode", std::string("custom"));
    weather.addSavedLocation({UUID::random(), "Oslo", 59.9, 10.7});
    for (int tab = 0; tab < 5; ++tab) {
        choose(tab);
        auto controls = KeyboardWalk::controlsBelow(find(QStringLiteral("page")));
        controls.push_back(chosenTab());
        for (auto* each : controls) {
            const auto name = KeyboardWalk::name(each).toStdString();
            EXPECT_TRUE(keyboard.leadsTo(each)) << name;
            EXPECT_TRUE(keyboard.canBeSeenOn(each)) << name;
            const auto place = each->mapRectToScene(each->boundingRect());
            EXPECT_TRUE(QRectF(shell.contentItem()->boundingRect()).contains(place)) << name;
        }
        for (auto* each : controls)
            EXPECT_TRUE(keyboard.leadsTo(each, Qt::Key_Backtab))
                << KeyboardWalk::name(each).toStdString();
        const auto isField = [](auto* each) { return each->inherits("QQuickTextInput"); };
        EXPECT_EQ(std::count_if(controls.begin(), controls.end(), isField), tab == 2 ? 1 : 0);
    }
}

TEST_F(SettingsViewTest, APanelMovesWithAltAndKeepsTheKeyboard) {
    choose(4);
    focus(find(QStringLiteral("row.media")));
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(panelOrder.allPanelsSorted()[1].id, "media");
    EXPECT_EQ(focused(), QStringLiteral("row.media"));
    key(Qt::Key_Up, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier); // at the top already
    EXPECT_EQ(panelOrder.allPanelsSorted()[0].id, "media");
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), QStringLiteral("row.fileShelf"));
}

TEST_F(SettingsViewTest, AWidgetGoesToAnotherZoneAndAnEmptyZoneSaysSo) {
    choose(3);
    auto* picker = item(find(QStringLiteral("row.media")), QStringLiteral("zonePicker"));
    focus(picker);
    key(Qt::Key_Down);
    EXPECT_EQ(hoverLayout.allWidgetsFor(HoverWidgetPosition::rightWing).back().id, "media");
    auto* zone = find(QStringLiteral("zone.leftWing"));
    EXPECT_TRUE(item(zone, QStringLiteral("empty"))->isVisible());
    EXPECT_EQ(focused(), QStringLiteral("zonePicker"));
}

TEST_F(SettingsViewTest, TheEyeSaysWhatItDoes) {
    choose(4);
    auto* eye = item(find(QStringLiteral("row.calendar")), QStringLiteral("eye"));
    eye->forceActiveFocus(Qt::TabFocusReason);
    auto* help = find(QStringLiteral("help"));
    ASSERT_TRUE(eventually([&] { return help->isVisible(); }));
    EXPECT_EQ(help->childItems().constFirst()->property("text"), "Hide panel");
}

TEST_F(SettingsViewTest, TheEyeHidesItsPanelAlone) {
    choose(4);
    press(item(find(QStringLiteral("row.calendar")), QStringLiteral("eye")));
    for (const auto& entry : panelOrder.allPanelsSorted())
        EXPECT_EQ(entry.isVisible, entry.id != "calendar") << entry.id;
}

TEST_F(SettingsViewTest, AClickOnARowsLabelSwitchesItOnce) {
    auto* row = find(QStringLiteral("row.reverseScrollDirection"));
    const auto label = row->mapToScene(QPointF(40, row->height() / 2));
    mouse(QEvent::MouseButtonPress, label);
    mouse(QEvent::MouseButtonRelease, label);
    EXPECT_EQ(stored("reverseScrollDirection"), true);
    mouse(QEvent::MouseButtonPress, label);
    mouse(QEvent::MouseButtonRelease, label);
    EXPECT_EQ(stored("reverseScrollDirection"), false);
    press(control(QStringLiteral("reverseScrollDirection")));
    EXPECT_EQ(stored("reverseScrollDirection"), true) << "the switch itself counts once";
}

TEST_F(SettingsViewTest, ARowDraggedToTheEdgeScrollsTheListThere) {
    shell.resize(500, 260);
    settings->setSize({500, 260});
    choose(4);
    auto* page = find(QStringLiteral("scroll"));
    const auto start = find(QStringLiteral("row.media"))->mapToScene({60, 15});
    mouse(QEvent::MouseButtonPress, start);
    mouse(QEvent::MouseMove, {start.x(), start.y() + 20});
    mouse(QEvent::MouseMove, {start.x(), 252});
    auto* list = find(QStringLiteral("panels"));
    const auto bottom = [&] { return list->mapToScene({0, list->height()}).y(); };
    EXPECT_TRUE(eventually([&] { return bottom() <= 260; })) << bottom();
    mouse(QEvent::MouseButtonRelease, {start.x(), 252});
    EXPECT_EQ(panelOrder.allPanelsSorted().back().id, "media");
    const auto row = find(QStringLiteral("row.media"))->mapToScene({60, 15});
    mouse(QEvent::MouseButtonPress, row);
    mouse(QEvent::MouseMove, {row.x(), row.y() - 20});
    mouse(QEvent::MouseMove, {row.x(), 76});
    const auto top = [&] { return list->mapToScene({0, 0}).y(); };
    EXPECT_TRUE(eventually([&] { return top() >= 65; })) << top();
    const double rested = page->property("contentY").toDouble();
    mouse(QEvent::MouseButtonRelease, {row.x(), 76});
    EXPECT_EQ(panelOrder.allPanelsSorted().front().id, "media");
    EXPECT_EQ(page->property("contentY").toDouble(), rested);
}

TEST_F(SettingsViewTest, FoundCitiesAreScrolledIntoView) {
    platform.userDefaultsPort.set("weatherEnabled", true);
    choose(2);
    focus(item(find(QStringLiteral("row.locationSearch")), QStringLiteral("field")));
    for (const auto letter : {'O', 's', 'l', 'o'}) {
        QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(letter)));
        QCoreApplication::sendEvent(&shell, &typed);
    }
    key(Qt::Key_Return);
    ASSERT_TRUE(platform.httpClientPort.answer(Replies::ok(
        R"({"results":[{"name":"Oslo","latitude":59.9,"longitude":10.7,"country":"Norway"},
            {"name":"Oslo","latitude":48.2,"longitude":-97.1,"country":"United States"},
            {"name":"Oslo","latitude":27.6,"longitude":-80.4,"country":"United States"}]})")));
    std::vector<QQuickItem*> rows;
    const std::function<void(QQuickItem*)> collect = [&](QQuickItem* top) {
        if (top->objectName().startsWith(QStringLiteral("row.found:")))
            rows.push_back(top);
        for (auto* child : top->childItems())
            collect(child);
    };
    EXPECT_TRUE(eventually([&] {
        rows.clear();
        collect(settings.get());
        return rows.size() == 3 &&
               std::all_of(rows.begin(), rows.end(), [&](auto* row) { return isInSight(row); });
    }));
}

TEST_F(SettingsViewTest, EscapeClosesAListThenClearsASearchThenClosesTheWindow) {
    platform.userDefaultsPort.set("weatherEnabled", true);
    choose(1);
    auto* picker = control(QStringLiteral("animationSpeed"));
    auto* list = picker->property("popup").value<QObject*>();
    focus(picker);
    key(Qt::Key_Space);
    ASSERT_TRUE(list->property("visible").toBool());
    key(Qt::Key_Escape);
    EXPECT_FALSE(list->property("visible").toBool());
    EXPECT_TRUE(shell.isVisible());
    choose(2);
    auto* field = item(find(QStringLiteral("row.locationSearch")), QStringLiteral("field"));
    field->setProperty("text", QStringLiteral("Oslo"));
    field->forceActiveFocus(Qt::TabFocusReason);
    turn();
    key(Qt::Key_Escape);
    EXPECT_EQ(field->property("text").toString(), QString());
    EXPECT_TRUE(shell.isVisible());
    key(Qt::Key_Escape);
    EXPECT_FALSE(shell.isVisible());
}

TEST_F(SettingsViewTest, AResetIsRedAndUndoneWhereItWasDone) {
    platform.userDefaultsPort.set("scrollSensitivity", 12.0);
    turn();
    auto* reset = control(QStringLiteral("resetDefaults"));
    EXPECT_EQ(reset->property("textColor").value<QColor>(), toQt(colors::red));
    EXPECT_FALSE(find(QStringLiteral("undoBar"))->isVisible());
    focus(reset); // which scrolls there
    press(reset);
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 5);
    auto* button = find(QStringLiteral("undoButton"));
    ASSERT_TRUE(button->isVisible());
    picture("settings-undo", shell);
    const auto bar = button->mapRectToScene(button->boundingRect());
    auto* page = find(QStringLiteral("page"));
    EXPECT_FALSE(bar.intersects(page->mapRectToScene(page->boundingRect()))) << "it covers nothing";
    EXPECT_TRUE(isInSight(reset)) << "the page makes room for it";
    ASSERT_TRUE(keyboard.leadsTo(button));
    EXPECT_TRUE(keyboard.canBeSeenOn(button));
    key(Qt::Key_Return);
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 12);
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(page->mapRectToScene(page->boundingRect()).bottom(), 500);
    focus(reset);
    key(Qt::Key_Return);
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 5);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(platform.userDefaultsPort.number("scrollSensitivity"), 12);
}

TEST_F(SettingsViewTest, TabLeadsThroughEveryPageInTheOrderOfTheEyeAndBack) {
    platform.userDefaultsPort.set("weatherEnabled", true);
    platform.userDefaultsPort.set("clipboardEnabled", true);
    platform.userDefaultsPort.set("themeMode", std::string("custom"));
    weather.addSavedLocation({UUID::random(), "Oslo", 59.9, 10.7});
    for (int tab = 0; tab < 5; ++tab) {
        choose(tab);
        for (const auto& fault : keyboard.faults())
            ADD_FAILURE() << "tab " << tab << ": " << fault;
    }
}

} // namespace
} // namespace orvelle
