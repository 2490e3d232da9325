"""The views as a user meets them: menus, the keyboard, and what can be seen of both."""

import subprocess

import pytest

from accessible import accessible_nodes, choose_tab, focused_tab, names, selected_tab
from desktop import stays, wait_until

COLLAPSED = (180, 32)
EXPANDED = (566, 220)
BAR_TOP = 36
MENU_ENTRIES = ["Lock Screen", "Sleep Display", "Energy Settings...", "Settings..."]


@pytest.fixture
def panel(desktop, accessibility_bus, start):
    """Opens a demonstration's panel with the tab of that name."""
    def open_(name):
        program = start("--demo")
        program.expand()
        program.wait_until_still()
        choose_tab(program, name)
        program.wait_until_still()
        return program

    return open_


def tab_centers(program):
    """Where each tab's middle is along the bar, by its name."""
    return {node["name"]: node["middle"][0] for node in accessible_nodes(program.desktop)
            if node["role"] == "page tab"}


def menus(program):
    """Open menus: windows of the program's besides its panel."""
    desktop = program.desktop
    return [window for window in desktop.windows_of_class("orvelle")
            if window.id != program.window().id and desktop.is_mapped(window)]


def open_menu(program):
    x, y, width, height = program.geometry()
    program.desktop.move_pointer(x + width // 2, y + height // 2)
    program.desktop.click(3)
    return wait_until(lambda: menus(program), "a menu", program.describe)[0]


def highlighted_row(program, menu):
    """The index of the row whose ground is lighter than the menu's, or None."""
    desktop = program.desktop
    x, y, width, _ = desktop.geometry(menu)
    grounds = [desktop.pixel(x + width - 12, y + 5 + 24 * row + 12)
               for row in range(len(MENU_ENTRIES))]
    lightest = max(grounds)
    return grounds.index(lightest) if grounds.count(lightest) == 1 else None


# Context menus


def test_a_right_click_opens_the_panel_s_menu_at_the_pointer(desktop, panel):
    program = panel("Battery")
    menu = open_menu(program)
    x, y, width, height = program.geometry()
    assert desktop.geometry(menu)[:2] == (x + width // 2, y + height // 2)
    wait_until(lambda: names(desktop, "menu item") == MENU_ENTRIES, "the menu's entries",
               lambda: f"There are {names(desktop, 'menu item')}")


def test_arrows_walk_the_menu_round(desktop, panel):
    program = panel("Battery")
    menu = open_menu(program)
    last = len(MENU_ENTRIES) - 1
    for key, row in (("Down", 0), ("Down", 1), ("Up", 0), ("Up", last), ("Down", 0)):
        desktop.keys(key)
        wait_until(lambda: highlighted_row(program, menu) == row, f"row {row} after {key}",
                   program.describe)


@pytest.mark.parametrize("key", ["Return", "Escape"])
def test_enter_and_escape_close_the_menu_and_keep_the_panel(desktop, panel, key):
    program = panel("Battery")
    menu = open_menu(program)
    desktop.keys("Down")
    wait_until(lambda: highlighted_row(program, menu) == 0, "a highlighted row", program.describe)
    desktop.keys(key)
    wait_until(lambda: not menus(program), "a closed menu", program.describe)
    assert stays(lambda: program.size() == EXPANDED, 0.5)


def test_a_press_in_another_program_closes_the_menu(desktop, panel):
    desktop.open_window(100, 400, 400, 300)
    program = panel("Battery")
    open_menu(program)
    desktop.move_pointer(300, 550)
    desktop.click()
    wait_until(lambda: not menus(program), "a closed menu", program.describe)


def test_the_keyboard_is_free_again_after_the_menu(openbox, panel):
    other = openbox.open_window(100, 400, 400, 300)
    openbox.focus_window(other)
    program = panel("Battery")
    open_menu(program)
    openbox.keys("Escape")
    wait_until(lambda: not menus(program), "a closed menu", program.describe)
    wait_until(lambda: openbox.focus() == other.id, "the focus given back", program.describe)


# The keyboard in the panel


def walk_to_the_tabs(desktop, program):
    """A panel for typing has its field in focus; the tabs stand before it."""
    wait_until(lambda: any(node["focused"] and node["role"] in ("text", "entry")
                           for node in accessible_nodes(desktop)),
               "a field in focus", program.describe)
    desktop.keys("shift+Tab")


def test_the_tab_bar_is_reached_and_worked_from_the_keyboard(desktop, panel):
    program = panel("Todo")
    wait_until(lambda: desktop.focus() == program.window().id, "the focus", program.describe)
    walk_to_the_tabs(desktop, program)
    wait_until(lambda: focused_tab(desktop) == "Todo", "a focused tab", program.describe)
    desktop.keys("Left")
    wait_until(lambda: focused_tab(desktop) == "Focus", "the tab before", program.describe)
    desktop.keys("Right", "Right")
    wait_until(lambda: focused_tab(desktop) == "Mirror", "the tab behind", program.describe)
    desktop.keys("Left", "Left", "space")
    wait_until(lambda: selected_tab(desktop) == "Focus", "the chosen tab", program.describe)


def test_another_start_gives_the_keyboard_to_any_panel(binary, environment, openbox, start,
                                                       accessibility_bus):
    other = openbox.open_window(100, 400, 400, 300)
    program = start()
    openbox.focus_window(other)
    subprocess.run([binary], env=environment, timeout=20, check=True)
    wait_until(lambda: openbox.focus() == program.window().id, "the focus", program.describe)
    wait_until(lambda: focused_tab(openbox) == "Media", "a focused tab", program.describe)
    openbox.keys("Right", "space")
    wait_until(lambda: selected_tab(openbox) == "Files", "the chosen tab", program.describe)
    openbox.keys("Right")
    wait_until(lambda: focused_tab(openbox) == "Calendar", "the tab behind", program.describe)
    assert openbox.focus() == program.window().id


def ringed_tabs(program):
    """The tabs whose upper edge is light."""
    return [name for name, x in tab_centers(program).items()
            if program.desktop.pixel(x, BAR_TOP)[0] > 90]


def test_the_focus_can_be_seen(desktop, panel):
    program = panel("Todo")
    wait_until(lambda: desktop.focus() == program.window().id, "the focus", program.describe)
    walk_to_the_tabs(desktop, program)
    wait_until(lambda: ringed_tabs(program) == ["Todo"], "a ring around Todo", program.describe)
    desktop.keys("Right")
    wait_until(lambda: ringed_tabs(program) == ["Mirror"], "a ring around Mirror",
               program.describe)


def test_a_tab_that_the_pointer_took_has_no_ring_until_a_key_is_pressed(binary, environment,
                                                                        desktop, panel):
    program = panel("Battery")
    subprocess.run([binary, "--demo"], env=environment, timeout=20, check=True)
    wait_until(lambda: desktop.focus() == program.window().id, "the focus", program.describe)
    choose_tab(program, "System")
    wait_until(lambda: focused_tab(desktop) == "System", "the tab's focus", program.describe)
    assert stays(lambda: ringed_tabs(program) == [], 0.5)
    desktop.keys("Right")
    wait_until(lambda: ringed_tabs(program) == ["Weather"], "a ring around Weather",
               program.describe)


def test_escape_closes_the_panel_and_gives_the_keyboard_back(openbox, panel):
    other = openbox.open_window(100, 400, 400, 300)
    openbox.focus_window(other)
    program = panel("Todo")
    wait_until(lambda: openbox.focus() == program.window().id, "the focus", program.describe)
    program.leave()
    openbox.keys("Escape")
    program.wait_for_size(COLLAPSED)
    wait_until(lambda: openbox.focus() == other.id, "the focus given back", program.describe)


def test_closing_gives_the_keyboard_back(openbox, panel):
    other = openbox.open_window(100, 400, 400, 300)
    openbox.focus_window(other)
    program = panel("Todo")
    wait_until(lambda: openbox.focus() == program.window().id, "the focus", program.describe)
    x, y, width, height = program.geometry()
    openbox.move_pointer(x + width // 2, y + height - 10)
    openbox.wheel_up()
    program.wait_for_size(COLLAPSED)
    wait_until(lambda: openbox.focus() == other.id, "the focus given back", program.describe)


# Words


def test_no_view_complains(desktop, panel):
    program = panel("Battery")
    for name in names(desktop, "page tab"):
        choose_tab(program, name)
        program.wait_until_still()
    assert "qml" not in program.describe().lower(), program.describe()
