"""The program as those know it who hear it, and what a user does to what is told there."""

import json
import pathlib
import subprocess

from desktop import wait_until

READER = pathlib.Path(__file__).with_name("accessibility.py")


def accessible_nodes(desktop):
    """Every node of the program's accessibility tree, parents first."""
    answer = subprocess.run(["/usr/bin/python3", READER, "orvelle"], env=desktop.environment,
                            capture_output=True, text=True, timeout=60)
    found = json.loads(answer.stdout or "[]")
    for node in found:
        found += node["children"]
    return found


def names(desktop, role):
    return [node["name"] for node in accessible_nodes(desktop) if node["role"] == role]


def tabs(desktop):
    """The tab bar's buttons: names, and which are selected."""
    return [(node["name"], node["selected"]) for node in accessible_nodes(desktop)
            if node["role"] == "page tab"]


def selected_tab(desktop):
    return next((name for name, selected in tabs(desktop) if selected), None)


def focused_tab(desktop):
    return next((node["name"] for node in accessible_nodes(desktop)
                 if node["role"] == "page tab" and node["focused"]), None)


def resting_node(look, what, explain=lambda: ""):
    """The node that `look` gives, as soon as two looks in a row find it at one place. Each look is
    answered from the program's loop, between two steps of whatever moves there."""
    before = None

    def is_at_rest():
        nonlocal before
        node, previous = look(), before
        before = node
        return node if node and previous and node["box"] == previous["box"] else None

    return wait_until(is_at_rest, f"{what} at rest", explain)


def resting_place(desktop, name, role=None):
    """The middle of what has this name, and this role if one is asked for, once it has stopped
    moving."""
    def look():
        return next((node for node in accessible_nodes(desktop)
                     if node["name"] == name and role in (None, node["role"]) and node["middle"]),
                    None)

    return resting_node(look, f"{role or ''} {name!r}",
                        lambda: f"There are {accessible_nodes(desktop)}")["middle"]


def wait_until_placed(desktop, window):
    """Until the program, too, knows where the window manager has put its window."""
    def is_known():
        return list(desktop.geometry(window)) in [node["box"] for node in accessible_nodes(desktop)]

    wait_until(is_known, "place of the window", lambda: str(desktop.geometry(window)))


def point_at(program, role, name):
    """Waits until what has this role and name is at rest and under the pointer's reach: without a
    compositor the window is only where its shape has grown to. Gives the place."""
    x, y = resting_place(program.desktop, name, role)
    reach(program, x, y)
    return x, y


def reach(program, x, y):
    """Moves the pointer to a place of the panel once the panel's shape has grown to it, with the
    edge that its content leaves free."""
    edge = 4

    def is_within_reach():
        left, top, _, _ = program.geometry()
        boxes = program.desktop.shape_boxes(program.window())
        return all(any(0 <= column - left - box[0] < box[2] and 0 <= y + edge - top - box[1] < box[3]
                       for box in boxes)
                   for column in (x - edge, x + edge))

    wait_until(is_within_reach, f"reach of {x}, {y}", program.describe)
    program.desktop.move_pointer(x, y)


def click_on(program, role, name):
    point_at(program, role, name)
    program.desktop.click()


def choose_tab(program, name):
    """Clicks on a tab of the open panel, and waits until it is the chosen one."""
    click_on(program, "page tab", name)
    wait_until(lambda: selected_tab(program.desktop) == name, f"the tab {name}", program.describe)


def open_panel(program, name):
    program.expand()
    choose_tab(program, name)
