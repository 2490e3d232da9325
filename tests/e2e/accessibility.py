"""Reads the program's accessibility tree. Run as a process of its own, since the library binds to
the session bus that its process started with: prints the tree as JSON, one object for each node."""

import json
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 5.0


def describe(node):
    states = node.get_state_set()
    return {
        "role": node.get_role_name(),
        "name": node.get_name(),
        "active": states.contains(Atspi.StateType.ACTIVE),
        "enabled": states.contains(Atspi.StateType.ENABLED),
        "focusable": states.contains(Atspi.StateType.FOCUSABLE),
        "focused": states.contains(Atspi.StateType.FOCUSED),
        "middle": middle(node),
        "showing": states.contains(Atspi.StateType.SHOWING),
        "selected": states.contains(Atspi.StateType.SELECTED)
        or states.contains(Atspi.StateType.CHECKED),
        "box": box(node),
        "children": [describe(child) for child in children(node)],
    }


def middle(node):
    """Where a pointer would click on it, on the display; none for what has no place."""
    component = node.get_component_iface()
    if not component:
        return None
    box = component.get_extents(Atspi.CoordType.SCREEN)
    return box.x + box.width // 2, box.y + box.height // 2


def box(node):
    """x, y, width, height on the display."""
    component = node.get_component_iface()
    if not component:
        return None
    extents = component.get_extents(Atspi.CoordType.SCREEN)
    return extents.x, extents.y, extents.width, extents.height


def children(node):
    found = (node.get_child_at_index(index) for index in range(node.get_child_count()))
    return [child for child in found if child]


def trees(program):
    """None if the program ended or rebuilt its views while we looked."""
    try:
        return [describe(application) for application in children(Atspi.get_desktop(0))
                if application.get_name() == program]
    except GLib.Error:
        return None


def main(program):
    Atspi.init()
    end = time.monotonic() + PATIENCE
    found = trees(program)
    while found is None and time.monotonic() < end:
        found = trees(program)
    json.dump(found or [], sys.stdout)


main(sys.argv[1])
