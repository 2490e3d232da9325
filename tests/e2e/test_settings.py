"""The settings window as a user meets it: opened from the panel's menu, moved by pointer and
keyboard, and what the store holds afterwards."""

import base64
import json
import subprocess

import pytest

from accessible import accessible_nodes
from desktop import WIDTH, wait_until

SIZE = (500, 500)


class Settings:
    """The open window, found by what it tells those who hear it."""

    def __init__(self, program, binary):
        self.program, self.desktop, self.binary = program, program.desktop, binary

    def nodes(self):
        return accessible_nodes(self.desktop)

    def find(self, role, name):
        return next((node for node in self.nodes()
                     if node["role"] == role and node["name"] == name), None)

    def control(self, role, name):
        """Where it is, scrolled into sight."""
        top, height = self.frame()[1], SIZE[1]
        for _ in range(30):
            node = wait_until(lambda: self.find(role, name), f"{role} {name!r}",
                              lambda: str(sorted((node["role"], node["name"])
                                                 for node in self.nodes())))
            x, y = node["middle"]
            if top + 80 < y < top + height - 12:
                return node
            self.desktop.move_pointer(self.frame()[0] + 12, top + height // 2)
            (self.desktop.wheel_up if y <= top + 80 else self.desktop.wheel_down)()
        raise AssertionError(f"{name} cannot be scrolled into sight: {node}")

    def frame(self):
        return self.desktop.geometry(windows(self.program)[0])

    def click(self, role, name):
        self.desktop.move_pointer(*self.control(role, name)["middle"])
        self.desktop.click()

    def tab(self, name):
        self.click_at(wait_until(lambda: self.find("page tab", name), name)["middle"])
        wait_until(lambda: self.find("page tab", name)["selected"], f"the page {name}")

    def click_at(self, place):
        self.desktop.move_pointer(*place)
        self.desktop.click()

    def slide(self, name, fraction):
        x, y, width, height = self.control("slider", name)["box"]
        self.click_at((round(x + 8 + fraction * (width - 16)), y + height // 2))

    def stored(self, key):
        """What the command line says of a setting; None while it is unset."""
        answer = subprocess.run([self.binary, "defaults", "read", key], text=True,
                                env=self.desktop.environment, capture_output=True, timeout=20)
        if answer.returncode != 0:
            return None
        try:
            return json.loads(answer.stdout)
        except ValueError:
            return answer.stdout.strip()

    def wait_for(self, key, value):
        wait_until(lambda: self.stored(key) == value, f"{key} = {value}",
                   lambda: f"It is {self.stored(key)}. {self.program.describe()}")


def windows(program):
    """The program's ordinary windows, inside their frames."""
    found = []

    def walk(window):
        for child in window.query_tree().children:
            if child.get_wm_name() == "Orvelle Settings" and program.desktop.is_mapped(child):
                found.append(child)
            else:
                walk(child)

    walk(program.desktop.root)
    return found


def open_settings(program):
    desktop = program.desktop
    if program.size() != (566, 220):
        program.expand()
        program.wait_until_still()
    desktop.move_pointer(WIDTH // 2, 110)
    desktop.click(3)
    entry = wait_until(lambda: next((node for node in accessible_nodes(desktop)
                                     if node["role"] == "menu item"
                                     and node["name"].startswith("Settings")), None),
                       "the menu", program.describe)
    desktop.move_pointer(*entry["middle"])
    desktop.click()
    wait_until(lambda: windows(program), "the settings window", program.describe)


@pytest.fixture
def settings_window(start, openbox, accessibility_bus, binary):
    def run(**changes):
        program = start(**changes)
        open_settings(program)
        window = Settings(program, binary)
        wait_until(lambda: window.find("page tab", "General"), "the tabs", program.describe)
        return window
    return run


def test_settings_twice_is_one_window(settings_window):
    settings = settings_window()
    assert settings.frame()[2:] == SIZE
    open_settings(settings.program)
    assert len(windows(settings.program)) == 1


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


def test_every_control_of_every_tab_has_a_name(settings_window):
    settings = settings_window(themeMode="custom")
    roles = {"push button", "check box", "slider", "combo box", "radio button", "list item",
             "page tab", "text", "entry"}
    for tab in ("General", "Appearance", "Features", "Hover Bar", "Panels"):
        settings.tab(tab)
        if tab == "Features":
            settings.click("check box", "System Monitor")
            settings.click("check box", "Weather")
            wait_until(lambda: settings.find("push button", "Search"), "the weather's rows")
        unnamed = [node for node in settings.nodes() if node["role"] in roles and not node["name"]]
        assert not unnamed, tab
