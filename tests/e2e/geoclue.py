"""GeoClue, as tests/Support/geoclue2.py plays it, on the bus of the test."""

import pathlib
import re
import subprocess

from desktop import wait_until

DOUBLE = pathlib.Path(__file__).parents[1] / "Support" / "geoclue2.py"
MANAGER = "/org/freedesktop/GeoClue2/Manager"


class GeoClue:
    def __init__(self, desktop):
        self.desktop = desktop
        self.process = desktop.spawn(
            ["/usr/bin/python3", str(DOUBLE)], stdout=subprocess.DEVNULL)
        wait_until(lambda: self.counts() is not None, "GeoClue's double")

    def order(self, method, *arguments):
        """Gives the answer's text; None without one."""
        answer = subprocess.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.GeoClue2",
             MANAGER, f"org.freedesktop.DBus.Mock.{method}", *arguments],
            env=self.desktop.environment, capture_output=True, text=True, timeout=20)
        return answer.stdout if answer.returncode == 0 else None

    def move_to(self, latitude, longitude):
        assert self.order("MoveTo", f"variant:double:{latitude}",
                          f"variant:double:{longitude}") is not None
        return self

    def answers(self, answer):
        """From now on: "allow", "deny", or "ask", which waits for `decide`."""
        assert self.order("SetAnswer", f"string:{answer}") is not None
        return self

    def decide(self, allowed):
        """The user's answer to the question that stands."""
        assert self.order("AnswerQuestions", f"boolean:{str(allowed).lower()}") is not None

    def counts(self):
        """Clients ever made, those there are, those started, and questions that stand."""
        answer = self.order("Counts")
        return answer and tuple(int(figure) for figure in re.findall(r"uint32 (\d+)", answer))

    def questions(self):
        return self.counts()[3]


def start(desktop, latitude, longitude):
    """The machine is at this place, and the program may know."""
    return GeoClue(desktop).move_to(latitude, longitude)
