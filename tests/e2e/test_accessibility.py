"""What a screen reader finds: every control has a name, and the keyboard reaches it."""

import pytest

from accessible import accessible_nodes, choose_tab, tabs
from app_windows import SETTINGS_TABS, WIZARD_HEADINGS
from desktop import wait_until

CONTROLS = {"push button", "toggle button", "check box", "radio button", "slider", "spin button",
            "text", "entry", "combo box", "list item", "menu item", "page tab"}
# The arrow keys lead to these, from the one of them that Tab leads to.
INNER = {"page tab", "list item", "menu item", "radio button"}


def controls(nodes):
    return [node for node in nodes if node["role"] in CONTROLS]


def faults(nodes):
    """Controls without a name, and those that take a press and that no key leads to."""
    shown = [node for node in controls(nodes) if node["showing"]]
    found = {
        "unnamed": [(node["role"], node["box"]) for node in shown if not node["name"].strip()],
        "out of reach": [(node["role"], node["name"]) for node in shown
                         if node["role"] not in INNER and node["enabled"]
                         and not node["focusable"]],
    }
    return {fault: which for fault, which in found.items() if which}


@pytest.fixture
def panel(desktop, accessibility_bus, start):
    program = start("--demo")
    program.expand()
    program.wait_until_still()
    wait_until(lambda: tabs(desktop), "tabs", program.describe)
    return program


def test_every_control_of_every_panel_has_a_name_and_a_way_for_the_keyboard(desktop, panel):
    names = [name for name, _ in tabs(desktop)]
    assert len(names) == 13
    found = {}
    for name in names:
        choose_tab(panel, name)
        panel.wait_until_still()
        found[name] = faults(accessible_nodes(desktop))
    assert {name: fault for name, fault in found.items() if fault} == {}


def test_every_control_of_the_hover_bar_has_a_name(desktop, accessibility_bus, start):
    program = start("--demo")
    program.enter()
    nodes = wait_until(lambda: controls(accessible_nodes(desktop)), "controls", program.describe)
    assert "unnamed" not in faults(nodes)


# The demonstration has every feature on, places saved, and places to find.
def test_every_control_of_the_settings_has_a_name_and_a_way_for_the_keyboard(settings_window):
    settings = settings_window("--demo")
    found = {}
    for tab in SETTINGS_TABS:
        settings.tab(tab)
        if tab == "Appearance":
            settings.click("combo box", "Mode")
            settings.desktop.keys("Down", "Return")
            wait_until(lambda: settings.find("slider", "Saturation"), "the color's rows",
                       settings.describe)
        if tab == "Features":
            settings.click("text", "Add city...")
            settings.desktop.type("Oslo")
            settings.desktop.keys("Return")
            wait_until(lambda: any(node["name"].startswith("Add ") and node["role"] == "push button"
                                   for node in settings.nodes()), "found places",
                       settings.describe)
            assert settings.find("slider", "Refresh") and settings.find("slider", "Sessions")
        nodes = settings.nodes()
        assert len(controls(nodes)) > len(SETTINGS_TABS) + 6, tab
        # What is scrolled out of sight counts too.
        found[tab] = faults([{**node, "showing": True} for node in nodes])
    assert {tab: fault for tab, fault in found.items() if fault} == {}


def test_every_control_of_the_wizard_has_a_name_and_a_way_for_the_keyboard(wizard):
    found = {}
    for heading in WIZARD_HEADINGS:
        wizard.wait_for_step(heading)
        found[heading] = faults(accessible_nodes(wizard.desktop))
        if heading != WIZARD_HEADINGS[-1]:
            wizard.desktop.keys("Return")
    assert {heading: fault for heading, fault in found.items() if fault} == {}
