"""The wizard of the first launch, as a user walks through it."""

import re

import pytest

import geoclue
from accessible import accessible_nodes, names
from app_windows import WIZARD_HEADINGS as HEADINGS, leave_and_return
from desktop import read_setting, wait_until


@pytest.fixture
def stored(binary, environment):
    return lambda: read_setting(binary, environment, "hasCompletedOnboarding")


def test_the_first_launch_shows_the_wizard_alone(wizard, stored):
    desktop = wizard.desktop
    assert desktop.geometry(wizard.wizard())[2:] == (480, 380)
    assert wizard.window() is None, "no panel yet"
    assert stored() is None


def test_the_keyboard_alone_leads_through(wizard, stored, tmp_path):
    desktop = wizard.desktop
    for heading in HEADINGS[1:5]:
        desktop.keys("Return")
        wizard.wait_for_step(heading)
    wizard.walk_to("push button", "Back")
    desktop.keys("space")
    wizard.wait_for_step("Camera Access")
    wizard.walk_to("push button", "Skip")
    desktop.keys("space")
    wizard.wait_for_step("Automation Access")
    wizard.walk_to("push button", "Open System Settings")
    wizard.walk_to("push button", "Next")
    desktop.keys("Return")
    wizard.wait_for_step("Launch at Login")
    wizard.walk_to("check box", "Launch at Login")
    desktop.keys("space")
    entry = tmp_path / "config/autostart/orvelle.desktop"
    wait_until(entry.exists, "login item", wizard.describe)
    wizard.walk_to("push button", "Next")
    desktop.keys("space")
    wizard.wait_for_step(HEADINGS[-1])
    wizard.walk_to("push button", "Finish Setup")
    desktop.keys("Return")
    wait_until(wizard.is_shown, "panel", wizard.describe)
    assert wizard.wizard() is None
    wait_until(lambda: stored() == "true", "the setting", wizard.describe)


def test_the_pointer_alone_leads_through(wizard, stored, tmp_path):
    wizard.click("push button", "Get Started")
    wizard.wait_for_step("Location Access")
    wizard.click("push button", "Skip")
    wizard.wait_for_step("Calendar Access")
    wizard.click("push button", "Back")
    wizard.wait_for_step("Location Access")
    for heading in HEADINGS[2:6]:
        wizard.click("push button", "Next")
        wizard.wait_for_step(heading)
    entry = tmp_path / "config/autostart/orvelle.desktop"
    wizard.click("check box", "Launch at Login")
    wait_until(entry.exists, "login item", wizard.describe)
    wizard.click("check box", "Launch at Login")
    wait_until(lambda: not entry.exists(), "end of the login item", wizard.describe)
    wizard.click("push button", "Next")
    wizard.wait_for_step(HEADINGS[-1])
    wizard.click("push button", "Finish Setup")
    wait_until(wizard.is_shown, "panel", wizard.describe)
    wait_until(lambda: stored() == "true", "the setting", wizard.describe)


def test_its_close_button_on_location_counts_as_finishing(wizard, stored):
    wizard.desktop.keys("Return")
    wizard.wait_for_step("Location Access")
    wizard.desktop.close_window(wizard.wizard())
    wait_until(wizard.is_shown, "panel", wizard.describe)
    assert wizard.wizard() is None
    wait_until(lambda: stored() == "true", "the setting", wizard.describe)


def test_the_dots_say_which_step_it_is(wizard):
    wizard.desktop.keys("Return")
    wizard.wait_for_step("Location Access")
    assert any(re.fullmatch("Step 2 of 7", node["name"])
               for node in accessible_nodes(wizard.desktop))


# The permission to know the place


@pytest.fixture
def location(environment, openbox):
    """GeoClue, whose user is asked; it is there before the program."""
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment["DBUS_SESSION_BUS_ADDRESS"]
    return geoclue.start(openbox, 59.91, 10.75).answers("ask")


def wait_for_status(wizard, text):
    wait_until(lambda: text in names(wizard.desktop, "label"), f"status {text!r}",
               lambda: f"It shows {names(wizard.desktop, 'label')}. {wizard.describe()}")


def ask_for_the_place(wizard, location):
    wizard.desktop.keys("Return")
    wizard.wait_for_step("Location Access")
    wait_for_status(wizard, "Not yet requested")
    assert location.counts()[0] == 0, "nobody is asked before the button is pressed"
    wizard.click("push button", "Allow Location")
    wait_until(lambda: location.questions() == 1, "question", wizard.describe)
    wait_for_status(wizard, "Not yet requested")


def test_the_wizard_shows_the_users_yes_and_keeps_it(location, wizard):
    ask_for_the_place(wizard, location)
    location.decide(True)
    wait_for_status(wizard, "Granted")
    assert wizard.node("push button", "Allow Location") is None
    wizard.click("push button", "Next")
    wizard.wait_for_step("Calendar Access")
    wizard.click("push button", "Back")
    wizard.wait_for_step("Location Access")
    wait_for_status(wizard, "Granted")
    wait_until(lambda: location.counts()[1:] == (0, 0, 0), "end of the client",
               lambda: str(location.counts()))


def test_the_wizard_shows_the_users_no_and_asks_again_on_return(location, wizard):
    ask_for_the_place(wizard, location)
    location.decide(False)
    wait_for_status(wizard, "Denied - enable in System Settings")
    assert wizard.node("push button", "Allow Location")
    desktop = wizard.desktop
    leave_and_return(desktop, wizard.wizard(), lambda: location.answers("allow"))
    wait_for_status(wizard, "Granted")


@pytest.fixture
def no_location(environment):
    """A bus on which nobody knows the place."""
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment["DBUS_SESSION_BUS_ADDRESS"]


def test_the_wizard_says_when_nobody_answers_for_the_place(no_location, wizard):
    wizard.desktop.keys("Return")
    wizard.wait_for_step("Location Access")
    wizard.click("push button", "Allow Location")
    wait_for_status(wizard, "No location service answered. Weather works with cities.")
    assert "Not yet requested" in names(wizard.desktop, "label")
    assert wizard.node("push button", "Allow Location")
