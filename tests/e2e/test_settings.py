"""The settings window as a user meets it: opened from the panel's menu, moved by pointer and
keyboard, and what the store holds afterwards."""

import base64
import json

import pytest
from Xlib import X

import geoclue
from app_windows import Settings, SETTINGS_SIZE, leave_and_return, open_settings
from desktop import stays, wait_until
from web import Web, forecast


def test_settings_twice_is_one_window(settings_window):
    settings = settings_window()
    assert settings.frame()[2:] == SETTINGS_SIZE
    desktop = settings.desktop
    desktop.focus_window(desktop.open_window(40, 700, 200, 150))
    open_settings(settings.program)
    assert len(settings.windows()) == 1


def test_switches_and_sliders_of_the_general_tab_write_their_settings(settings_window):
    settings = settings_window()
    for name, key, value in (("Show Menu Bar Icon", "showInMenuBar", False),
                             ("Click Widget Opens Its Panel", "clickWidgetNavigatesToPanel",
                              False),
                             ("Todo Swipe Actions", "todoSwipeActionsEnabled", False),
                             ("Reverse Scroll Direction", "reverseScrollDirection", True)):
        settings.click("check box", name)
        settings.wait_for(key, value)
    for name, key, value in (("Hover Delay", "hoverActivationDelay", 0.5),
                             ("Scroll Sensitivity", "scrollSensitivity", 30),
                             ("Swipe Sensitivity", "horizontalSwipeSensitivity", 40),
                             ("Collapse Delay", "collapseDebounceInterval", 0.5),
                             ("Swipe Cooldown", "swipeCooldown", 1)):
        settings.slide(name, 1)
        settings.wait_for(key, value)


def test_a_reset_writes_the_values_of_the_table(settings_window):
    settings = settings_window(swipeCooldown="0.9", showInMenuBar="false")
    settings.click("push button", "Reset All Settings to Defaults")
    for key, value in (("launchAtLogin", False), ("showInMenuBar", True),
                       ("hoverActivationDelay", 0.3), ("scrollSensitivity", 5),
                       ("horizontalSwipeSensitivity", 15), ("collapseDebounceInterval", 0.4),
                       ("swipeCooldown", 0.4), ("reverseScrollDirection", False),
                       ("requireRealNotch", False)):
        settings.wait_for(key, value)
    assert settings.stored("todoSwipeActionsEnabled") is None


def test_the_appearance_tab_writes_its_settings(settings_window):
    settings = settings_window(themeMode="custom")
    settings.tab("Appearance")
    settings.click("check box", "System Stats")
    settings.wait_for("showSystemStatsInHover", True)
    settings.slide("Hue", 0)
    settings.wait_for("customAccentHue", 0)
    settings.click("combo box", "Speed")
    settings.desktop.keys("Down", "Return")
    settings.wait_for("animationSpeed", "fast")
    settings.click("push button", "Reset Appearance")
    settings.wait_for("animationSpeed", "normal")
    settings.wait_for("themeMode", "system")
    wait_until(lambda: settings.find("slider", "Hue") is None, "the hue to go")


def test_a_feature_switched_off_stops_and_its_rows_hide(settings_window):
    settings = settings_window()
    settings.tab("Features")
    settings.slide("Retention", 1)
    settings.wait_for("fileShelfRetentionHours", 72)
    settings.click("check box", "File Shelf")
    settings.wait_for("fileShelfEnabled", False)
    wait_until(lambda: settings.find("slider", "Retention") is None, "the row to go")
    assert settings.stored("fileShelfRetentionHours") == 72
    settings.click("check box", "File Shelf")
    wait_until(lambda: settings.find("slider", "Retention"), "the row to come back")


def test_a_widget_is_moved_by_the_keyboard_and_hidden_by_its_switch(settings_window):
    settings = settings_window()
    settings.tab("Hover Bar")

    def placements():
        return {entry["id"]: entry for entry in layout(settings, "hoverWidgetPlacements")}

    settings.click("check box", "Show Weather")
    wait_until(lambda: settings.stored("hoverWidgetPlacements")
               and not placements()["weather"]["isVisible"], "a hidden widget")
    settings.click("list item", "Weather")
    settings.desktop.keys("alt+Down")
    wait_until(lambda: placements()["weather"]["sortOrder"] == 1, "a moved widget")


def test_a_panel_is_dragged_to_another_place(settings_window):
    settings = settings_window()
    settings.tab("Panels")
    media = settings.control("list item", "Media")["middle"]
    calendar = settings.control("list item", "Calendar")["middle"]
    desktop = settings.desktop
    desktop.move_pointer(*media)
    desktop.press(1)
    for step in range(1, 11):
        desktop.move_pointer(media[0], media[1] + (calendar[1] - media[1]) * step // 10)
    desktop.release(1)
    wait_until(lambda: settings.stored("panelTabBarOrder"), "a stored order")

    def order():
        rows = sorted(layout(settings, "panelTabBarOrder"), key=lambda row: row["sortOrder"])
        return [row["id"] for row in rows]

    wait_until(lambda: order()[:3] == ["fileShelf", "calendar", "media"], "the new order",
               lambda: str(order()))
    settings.click("push button", "Reset to Defaults")
    wait_until(lambda: order()[0] == "media", "the order of before")


def layout(settings, key):
    """A list that the store holds as data."""
    return json.loads(base64.b64decode(settings.stored(key)["$data"]))


def test_an_owner_that_never_answers_holds_nothing_up(settings_window):
    settings = settings_window(weatherEnabled=True)
    desktop = settings.desktop
    settings.tab("Features")
    settings.click("text", "Add city...")
    silent = desktop.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
    for selection in ("CLIPBOARD", "PRIMARY"):
        silent.set_selection_owner(desktop.atom(selection), X.CurrentTime)
    desktop.display.sync()
    asked = set()

    def is_asked(selection):
        while desktop.display.pending_events():
            event = desktop.display.next_event()
            if event.type == X.SelectionRequest:
                asked.add(event.selection)
        return desktop.atom(selection) in asked

    desktop.keys("ctrl+v", "shift+Insert")
    wait_until(lambda: is_asked("CLIPBOARD"), "question for the clipboard")
    # The window manager holds a press back while it looks at it; keys overtake it then.
    desktop.click(2)
    wait_until(lambda: is_asked("PRIMARY"), "question for the selected text")
    desktop.keys("shift+Tab", "End")
    # The toolkit itself would wait for such an owner for five seconds each time.
    wait_until(lambda: settings.stored("weatherUpdateIntervalMinutes") == 60, "moved slider",
               settings.program.describe, bound=4)


def test_the_window_offers_to_be_closed_and_nothing_else(settings_window):
    settings = settings_window()
    window = settings.windows()[0]
    _, functions, decorations, *_ = settings.desktop.property(window, "_MOTIF_WM_HINTS")
    resize, move, minimize, maximize, close = 2, 4, 8, 16, 32
    assert functions & ~resize == move | close
    border, title, menu = 2, 8, 16
    assert decorations & ~4 == border | title | menu
    hints = window.get_wm_normal_hints()
    assert (hints.min_width, hints.min_height) == (hints.max_width, hints.max_height) == \
        SETTINGS_SIZE


def test_minimised_settings_come_back(settings_window):
    settings = settings_window()
    desktop = settings.desktop
    window = settings.windows()[0]
    desktop.minimize(window)
    wait_until(lambda: not desktop.is_mapped(window), "minimised settings")
    open_settings(settings.program)
    assert desktop.is_mapped(window)


def test_the_weather_row_follows_the_permission(settings_window, environment, openbox):
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment["DBUS_SESSION_BUS_ADDRESS"]
    location = geoclue.start(openbox, 59.91, 10.75).answers("ask")
    settings = settings_window()
    settings.tab("Features")
    settings.click("check box", "Weather")
    wait_until(location.questions, "question", settings.describe)
    assert settings.find("check box", "Weather"), "nobody has answered yet"
    location.decide(False)
    wait_until(lambda: settings.find("label", "Location access denied"), "denied row",
               settings.describe)
    assert settings.find("check box", "Weather") is None
    settings.tab("General")
    settings.tab("Features")
    wait_until(lambda: settings.find("label", "Location access denied"), "denied row, kept",
               settings.describe)
    leave_and_return(settings.desktop, settings.windows()[0], lambda: location.answers("allow"))
    wait_until(lambda: settings.find("check box", "Weather"), "switch", settings.describe)
    assert settings.find("label", "Location access denied") is None


def test_the_refresh_control_changes_the_interval_at_once(settings_window, environment):
    web = Web()
    web.answers["/v1/forecast"] = forecast(60)
    environment["ORVELLE_FORECAST_ROOT"] = web.root
    settings = settings_window(weatherEnabled=True, weather_cachedLatitude="48.0",
                               weatherUpdateIntervalMinutes="0.02")
    wait_until(lambda: len(web.requests("/v1/forecast")) > 2, "repeated requests",
               settings.describe)
    settings.tab("Features")
    settings.slide("Refresh", 1)
    settings.wait_for("weatherUpdateIntervalMinutes", 60)
    count = len(web.requests("/v1/forecast"))
    assert stays(lambda: len(web.requests("/v1/forecast")) == count, 3)
    web.stop()


def test_a_title_names_the_program_once(settings_window):
    settings = settings_window()
    desktop = settings.desktop
    assert desktop.title(settings.windows()[0]) == "Orvelle Settings"
    assert desktop.title(settings.program.window()) == "Orvelle Notch"


def test_escape_closes_the_window(settings_window):
    settings = settings_window()
    settings.desktop.keys("Escape")
    wait_until(lambda: not settings.windows(), "end of the window", settings.describe)
    open_settings(settings.program)
    assert settings.windows()


# Beside the panel


SMALL = [(1024, 600), (1366, 768)]


@pytest.fixture
def small_settings(openbox, accessibility_bus, start, binary):
    """The settings, opened on a small screen from the open panel."""
    def run(width, height):
        openbox.resize(width, height)
        program = start()
        program.expand()
        program.wait_until_still()
        open_settings(program)
        return Settings(program, binary)
    return run


def overlap(one, other):
    return (one[0] < other[0] + other[2] and other[0] < one[0] + one[2]
            and one[1] < other[1] + other[3] and other[1] < one[1] + one[3])


@pytest.mark.parametrize("size", SMALL)
def test_the_open_panel_hides_nothing_of_the_settings(small_settings, size):
    settings = small_settings(*size)
    desktop, panel, window = settings.desktop, settings.program.window(), settings.windows()[0]
    frame = desktop.geometry(desktop.frame(window))
    assert frame[1] >= 0 and frame[1] + frame[3] <= size[1]
    fits_beneath = size[1] - 220 >= frame[3]
    assert overlap(frame, settings.program.geometry()) == (not fits_beneath)
    wait_until(lambda: fits_beneath or desktop.is_above(window, panel), "settings in sight",
               settings.describe)
    assert stays(lambda: fits_beneath or desktop.is_above(window, panel), 0.3)


def test_the_panel_is_above_all_again_when_the_settings_are_left(small_settings):
    settings = small_settings(*SMALL[0])
    desktop, panel, window = settings.desktop, settings.program.window(), settings.windows()[0]
    other = desktop.open_window(20, 400, 200, 150)
    desktop.move_pointer(100, 475)
    desktop.click()
    wait_until(lambda: desktop.active_window() == other.id, "other program in front")
    wait_until(lambda: desktop.is_above(panel, window), "panel above", settings.describe)
    desktop.move_pointer(400, 590)
    left, top, _, height = desktop.geometry(window)
    desktop.move_pointer(left + 4, top + height - 4)
    desktop.click()
    settings.program.expand()
    wait_until(lambda: desktop.is_above(window, panel), "settings in sight", settings.describe)
    desktop.close_window(window)
    wait_until(lambda: desktop.is_on_top(panel), "panel above", settings.describe)


def test_settings_moved_under_the_panel_come_above_it(settings_window):
    settings = settings_window()
    desktop, panel, window = settings.desktop, settings.program.window(), settings.windows()[0]
    assert not overlap(desktop.geometry(desktop.frame(window)), settings.program.geometry())
    window.configure(x=500, y=60)
    desktop.display.sync()
    wait_until(lambda: desktop.is_above(window, panel), "settings in sight", settings.describe)
