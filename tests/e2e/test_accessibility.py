"""What a screen reader finds: every control has a name, and the keyboard reaches it."""

import pytest

from accessible import accessible_nodes, choose_tab, tabs
from desktop import wait_until

CONTROLS = {"push button", "toggle button", "check box", "radio button", "slider", "spin button",
            "text", "entry", "combo box", "list item", "menu item", "page tab"}
# The arrow keys lead to these, from the one of them that Tab leads to.
INNER = {"page tab", "list item", "menu item"}


def unnamed(nodes):
    return [(node["role"], node["box"]) for node in nodes
            if node["role"] in CONTROLS and node["showing"] and not node["name"].strip()]


def out_of_reach(nodes):
    """Controls that take a press and that no key leads to."""
    return [(node["role"], node["name"]) for node in nodes
            if node["role"] in CONTROLS - INNER and node["showing"] and node["enabled"]
            and not node["focusable"]]


def controls(nodes):
    return [node for node in nodes if node["role"] in CONTROLS]


@pytest.fixture
def panel(desktop, accessibility_bus, start):
    program = start("--demo")
    program.expand()
    program.wait_until_still()
    wait_until(lambda: tabs(desktop), "tabs", program.describe)
    return program


def test_every_control_of_every_panel_has_a_name_and_a_way_for_the_keyboard(desktop, panel):
    names = [name for name, _ in tabs(desktop)]
    assert len(names) > 10
    faults = {}
    for name in names:
        choose_tab(panel, name)
        panel.wait_until_still()
        nodes = accessible_nodes(desktop)
        found = {"unnamed": unnamed(nodes), "out of reach": out_of_reach(nodes)}
        faults[name] = {fault: which for fault, which in found.items() if which}
    assert {name: fault for name, fault in faults.items() if fault} == {}


def test_every_control_of_the_hover_bar_has_a_name(desktop, accessibility_bus, start):
    program = start("--demo")
    program.enter()
    nodes = wait_until(lambda: controls(accessible_nodes(desktop)), "controls", program.describe)
    assert unnamed(nodes) == []
