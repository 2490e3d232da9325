"""The program's ordinary windows, found by what they tell those who hear them."""

import json
import subprocess

from accessible import accessible_nodes, reach, resting_node, resting_place, wait_until_placed
from desktop import Program, wait_until

SETTINGS_TITLE = "Orvelle Settings"
SETTINGS_SIZE = (500, 500)
SETTINGS_HEADER = 80  # the tabs, and what a row needs to stand clear of them
SETTINGS_TABS = ["General", "Appearance", "Features", "Hover Bar", "Panels"]
WIZARD_TITLE = "Welcome to Orvelle"
WIZARD_HEADINGS = [WIZARD_TITLE, "Location Access", "Calendar Access", "Camera Access",
                   "Automation Access", "Launch at Login", "You're All Set!"]


class Settings:
    """The settings window, opened from the panel's menu."""

    def __init__(self, program, binary):
        self.program, self.desktop, self.binary = program, program.desktop, binary

    def nodes(self):
        return accessible_nodes(self.desktop)

    def find(self, role, name):
        return next((node for node in self.nodes()
                     if node["role"] == role and node["name"] == name), None)

    def resting(self, role, name):
        return resting_node(lambda: self.find(role, name), f"{role} {name!r}", self.describe)

    def control(self, role, name):
        """Where it is, scrolled into sight. Each notch of the wheel is seen to move it."""
        x, top, _, height = self.frame()
        for _ in range(60):
            node = self.resting(role, name)
            y = node["middle"][1]
            if top + SETTINGS_HEADER < y < top + height - 12:
                return node
            self.desktop.move_pointer(x + 12, top + height // 2)
            (self.desktop.wheel_up if y <= top + SETTINGS_HEADER else self.desktop.wheel_down)()
            wait_until(lambda: (self.find(role, name) or node)["box"] != node["box"],
                       f"{name} to scroll", self.describe)
        raise AssertionError(f"{name} cannot be scrolled into sight: {node}")

    def describe(self):
        return f"{[(node['role'], node['name']) for node in self.nodes()]} " + \
            self.program.describe()

    def windows(self):
        return settings_windows(self.desktop)

    def frame(self):
        return self.desktop.geometry(self.windows()[0])

    def click(self, role, name):
        self.desktop.move_pointer(*self.control(role, name)["middle"])
        self.desktop.click()
        if role == "text":
            # The window manager holds a press back while it looks at it; keys overtake it then.
            wait_until(lambda: (self.find(role, name) or {}).get("focused"), f"keyboard in {name}",
                       self.describe)

    def tab(self, name):
        self.click_at(self.resting("page tab", name)["middle"])
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


def leave_and_return(desktop, window, meanwhile):
    """Does something while another program's window is in front, then clicks an empty place of this
    one."""
    other = desktop.open_window(40, 700, 200, 150)
    desktop.move_pointer(140, 775)
    desktop.click()
    wait_until(lambda: desktop.active_window() == other.id, "other program in front")

    def is_active():
        return any(node["role"] == "frame" and node["active"] for node in accessible_nodes(desktop))

    # The toolkit takes its time to believe that the keyboard is gone.
    wait_until(lambda: not is_active(), "end of the window's activity")
    meanwhile()
    left, top, _, _ = desktop.geometry(window)
    desktop.move_pointer(left + 4, top + 4)
    desktop.click()
    wait_until(is_active, "window in front again")


def settings_windows(desktop):
    return desktop.windows_titled(SETTINGS_TITLE)


def open_settings(program):
    desktop = program.desktop
    if program.size() != (566, 220):
        program.expand()
        program.wait_until_still()
    left, _, width, _ = program.geometry()
    reach(program, left + width // 2, 214)  # below what the panel shows, which may have its own menu
    desktop.click(3)
    desktop.move_pointer(*resting_place(desktop, "Settings...", "menu item"))
    desktop.click()
    window = wait_until(lambda: settings_windows(desktop), "settings window", program.describe)[0]
    wait_until(lambda: desktop.active_window() == window.id, "settings in front", program.describe)
    wait_until_placed(desktop, window)


class Wizard(Program):
    """The program at its first launch, with its wizard."""

    def wizard(self):
        return next(iter(self.desktop.windows_titled(WIZARD_TITLE)), None)

    def node(self, role, name):
        """The control that can be seen under that name."""
        return next((node for node in accessible_nodes(self.desktop)
                     if (node["role"], node["name"]) == (role, name) and node["showing"]), None)

    def headings(self):
        """Two while one step slides out and another one in."""
        return [node["name"] for node in accessible_nodes(self.desktop)
                if node["role"] == "heading"]

    def wait_for_step(self, heading):
        wait_until(lambda: self.headings() == [heading], f"step {heading}",
                   lambda: f"It shows {self.headings()}. {self.describe()}")

    def click(self, role, name):
        node = resting_node(lambda: self.node(role, name), f"{role} {name}", self.describe)
        self.desktop.move_pointer(*node["middle"])
        self.desktop.click()

    def focused(self):
        return next(((node["role"], node["name"]) for node in accessible_nodes(self.desktop)
                     if node["focused"] and node["showing"]), None)

    def walk_to(self, role, name):
        """Tab by tab, until that control has the keyboard."""
        for _ in range(8):
            before = wait_until(self.focused, "keyboard in the wizard", self.describe)
            if before == (role, name):
                return
            self.desktop.keys("Tab")
            wait_until(lambda: self.focused() not in (before, None), f"way on from {before}",
                       self.describe)
        raise AssertionError(f"Tab does not lead to {name}. {self.describe()}")
