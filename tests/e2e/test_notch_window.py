"""The notch's window as a user meets it: measured on the display, never asked of the program."""

import signal
import subprocess
import time

import pytest
from Xlib import X

from accessible import selected_tab, tabs
from desktop import WIDTH, Program, stays, wait_until

COLLAPSED = (180, 32)
EXPANDED = (566, 220)

# With the default placements and settings the battery is in the right wing, media and weather have
# nothing to show: the wing is 50 + 8 + 20 wide. In the row below stands the clock alone, which
# asks for less. 180 + 2 * 78 + 2 * 8 by 32 + 36.
HOVERING = (352, 68)


def centred(size):
    return ((WIDTH - size[0]) // 2, 0, *size)


def bottom_of_shape(program):
    """Without a compositor the window takes part only where the animated shape is."""
    return max(y + height for _, y, _, height in program.desktop.shape_boxes(program.window()))


def seconds_until_size(program, size, act):
    """How long after `act` the window has the size, by the display server's own clock."""
    desktop = program.desktop
    window = program.window()
    window.change_attributes(event_mask=X.StructureNotifyMask | X.PropertyChangeMask)
    desktop.display.sync()
    while desktop.display.pending_events():
        desktop.display.next_event()
    act()
    started = time.monotonic()

    def resized():
        while desktop.display.pending_events():
            event = desktop.display.next_event()
            if event.type == X.ConfigureNotify and (event.width, event.height) == size:
                return True
        return False

    wait_until(resized, f"size {size}", program.describe)
    return time.monotonic() - started


# Where it stands


def test_hangs_from_the_middle_of_the_top_edge(start):
    assert start().geometry() == centred(COLLAPSED)


def test_is_as_high_as_the_bar_at_the_top(openbox, start):
    openbox.open_dock(28)
    wait_until(lambda: openbox.property(openbox.root, "_NET_WORKAREA")[1:2] == [28], "work area")
    assert start().geometry() == centred((180, 28))


def test_bears_its_class_and_title(start):
    window = start().window()
    assert window.get_wm_class() == ("orvelle", "orvelle")
    assert window.get_wm_name() == "Orvelle Notch"


def test_moves_with_the_display_s_size(desktop, start):
    program = start()
    desktop.resize(1280, 800)
    wait_until(lambda: program.geometry() == (550, 0, *COLLAPSED), "new place", program.describe)


def test_leaves_the_focus_where_it_is(openbox, start):
    other = openbox.open_window(100, 300, 400, 300)
    openbox.focus_window(other)
    program = start()
    program.expand()
    assert openbox.focus() == other.id


# Hovering


def test_the_pointer_opens_the_hover_bar(start):
    program = start()
    program.enter()
    program.wait_for_size(HOVERING)
    assert program.geometry() == centred(HOVERING)


def test_leaving_closes_the_hover_bar_after_the_debounce_and_not_before(start):
    program = start(collapseDebounceInterval=0.5, animationSpeed="fast")
    program.enter()
    program.wait_for_size(HOVERING)
    # The debounce, then the 0.18 seconds of the animation.
    assert seconds_until_size(program, COLLAPSED, program.leave) >= 0.45 + 0.18


def test_coming_back_in_time_keeps_the_hover_bar(start):
    program = start(collapseDebounceInterval=0.5)
    program.enter()
    program.wait_for_size(HOVERING)
    program.leave()
    program.enter()
    assert stays(lambda: program.size() == HOVERING, 1.2)


def test_a_pointer_close_beside_the_bar_keeps_it(start):
    program = start(collapseDebounceInterval=0.05)
    program.enter()
    program.wait_for_size(HOVERING)
    x, _, _, height = program.geometry()
    program.desktop.move_pointer(x + 40, height + 5)
    assert stays(lambda: program.size() == HOVERING, 0.8)


# Opening and closing


def test_one_notch_of_the_wheel_opens_the_panel(start):
    program = start()
    program.enter()
    program.desktop.wheel_down()
    program.wait_for_size(EXPANDED)
    assert program.geometry() == centred(EXPANDED)


def test_one_notch_of_the_wheel_closes_the_panel(start):
    program = start()
    program.expand()
    program.desktop.wheel_up()
    program.wait_for_size(COLLAPSED)


# An open panel closes by more than 3.5 times the sensitivity; a notch is 20 points.
@pytest.mark.parametrize("sensitivity, notches", [(2, 1), (5, 1), (6, 2), (12, 3), (30, 6)])
def test_a_wheel_opens_and_closes_with_any_sensitivity(start, sensitivity, notches):
    program = start(scrollSensitivity=sensitivity)
    program.expand()
    if notches > 1:
        program.desktop.wheel_up(notches - 1)
        assert stays(lambda: program.size() == EXPANDED, 0.6), "a pause ends the stroke"
    program.desktop.wheel_up(notches)
    program.wait_for_size(COLLAPSED)
    program.desktop.wheel_down()
    program.wait_for_size(EXPANDED)


def test_leaving_does_not_close_an_open_panel(start):
    program = start(collapseDebounceInterval=0.05)
    program.expand()
    program.leave()
    assert stays(lambda: program.size() == EXPANDED, 0.8)


def test_a_press_in_another_program_closes_the_panel(openbox, start):
    other = openbox.open_window(100, 300, 400, 300)
    openbox.focus_window(other)
    program = start()
    program.expand()
    openbox.move_pointer(300, 450)
    openbox.click()
    program.wait_for_size(COLLAPSED)


def test_a_press_in_another_program_leaves_the_hover_bar(desktop, start):
    desktop.open_window(100, 300, 400, 300)
    program = start(collapseDebounceInterval=0.5)
    program.enter()
    program.wait_for_size(HOVERING)
    program.leave()
    desktop.click()
    program.enter()
    assert stays(lambda: program.size() == HOVERING, 0.8)


def test_a_press_in_the_panel_does_not_close_it(start):
    program = start()
    program.expand()
    x, y, width, height = program.geometry()
    wait_until(lambda: bottom_of_shape(program) == height, "fully grown shape", program.describe)
    program.desktop.move_pointer(x + width // 2, y + height - 4)
    program.desktop.click()
    assert stays(lambda: program.size() == EXPANDED, 0.8)


@pytest.mark.parametrize("speed, delay", [("slow", 0.45), ("normal", 0.32), ("fast", 0.18)])
def test_the_window_stays_large_while_the_views_shrink(start, speed, delay):
    program = start(animationSpeed=speed)
    program.expand()
    program.desktop.move_pointer(300, 600)
    taken = seconds_until_size(program, COLLAPSED, program.desktop.click)
    assert delay - 0.02 <= taken <= delay + 0.3


# Swiping


def swipe_at(program, depth, swipe):
    x, _, width, _ = program.geometry()
    program.desktop.move_pointer(x + width // 2, depth)
    swipe()


def test_a_swipe_over_the_tab_bar_changes_the_tab(desktop, accessibility_bus, start):
    program = start(swipeCooldown=0.5)
    program.expand()
    wait_until(lambda: selected_tab(desktop), "a selected tab", program.describe)
    names = [name for name, _ in tabs(desktop)]
    assert len(names) > 1
    before = names.index(selected_tab(desktop))

    swipe_at(program, 40, desktop.swipe_left)
    following = names[(before + 1) % len(names)]
    wait_until(lambda: selected_tab(desktop) == following, "the following tab", program.describe)
    # One swipe goes one tab, and after the cooldown the next may come.
    assert stays(lambda: selected_tab(desktop) == following, 0.6)
    swipe_at(program, 40, desktop.swipe_right)
    wait_until(lambda: selected_tab(desktop) == names[before], "the first tab", program.describe)


def test_a_tilted_wheel_swipes_with_the_least_sensitivity(desktop, accessibility_bus, start):
    program = start(horizontalSwipeSensitivity=40)
    program.expand()
    before = wait_until(lambda: selected_tab(desktop), "a selected tab", program.describe)
    swipe_at(program, 40, lambda: desktop.swipe_left(2))
    assert stays(lambda: selected_tab(desktop) == before, 0.6)
    swipe_at(program, 40, lambda: desktop.swipe_left(3))
    wait_until(lambda: selected_tab(desktop) != before, "another tab", program.describe)


def test_a_swipe_below_the_tab_bar_changes_no_tab(desktop, accessibility_bus, start):
    program = start()
    program.expand()
    before = wait_until(lambda: selected_tab(desktop), "a selected tab", program.describe)
    swipe_at(program, 150, desktop.swipe_left)
    assert stays(lambda: selected_tab(desktop) == before, 0.6)


# Settings while it runs


def test_asking_for_a_real_notch_takes_the_panel_away(start, settings):
    program = start()
    settings("requireRealNotch", "true")
    wait_until(lambda: not program.is_shown(), "panel taken away", program.describe)
    settings("requireRealNotch", "false")
    wait_until(program.is_shown, "panel brought back", program.describe)
    assert program.geometry() == centred(COLLAPSED)


def test_another_display_while_the_panel_is_away_leaves_one_that_works(desktop, start, settings):
    program = start()
    settings("requireRealNotch", True)
    wait_until(lambda: not program.is_shown(), "panel taken away", program.describe)
    desktop.resize(1280, 800)
    settings("customAccentHue", 0.3)
    settings("requireRealNotch", False)
    wait_until(program.is_shown, "panel brought back", program.describe)
    wait_until(lambda: program.geometry() == (550, 0, *COLLAPSED), "new place", program.describe)
    program.expand()


def test_a_changed_setting_asks_the_display_server_nothing(openbox, start, settings):
    for index in range(60):
        openbox.open_window(20 * (index % 40), 300 + 5 * index, 100, 80)
    openbox.open_dock(28)
    program = start()
    wait_until(lambda: program.size() == (180, 28), "panel as high as the bar", program.describe)

    def detections():
        return program.describe().count("Detecting notch")

    with openbox.questions(program.window()) as questions:
        def is_quiet():
            questions.clear()
            return stays(lambda: not questions, 0.3)

        wait_until(is_quiet, "end of what a start asks", program.describe)
        before = detections()
        settings("customAccentHue", 0.3)
        wait_until(lambda: detections() > before, "the new setting", program.describe)
        assert stays(lambda: not questions, 0.5), questions
        # The watch itself works: it sees the questions that a window's move is worth.
        settings("notch.safeAreaTop", 40)
        program.wait_for_size((180, 40))
        wait_until(lambda: questions, "questions")


def test_a_bar_that_grows_is_followed(openbox, start):
    bar = openbox.open_dock(28)
    program = start()
    wait_until(lambda: program.size() == (180, 28), "panel as high as the bar", program.describe)
    openbox.reserve(bar, 40)
    wait_until(lambda: program.size() == (180, 40), "panel as high as the bar", program.describe)
    bar.destroy()
    openbox.display.sync()
    wait_until(lambda: program.size() == COLLAPSED, "panel of its own height", program.describe)


def test_a_notch_from_the_settings_gives_the_panel_its_size(start, settings):
    program = start(**{"notch.safeAreaTop": 37, "notch.auxiliaryLeftWidth": 670,
                       "notch.auxiliaryRightWidth": 670})
    assert program.geometry() == (670, 0, 172, 37)
    settings("notch.safeAreaTop", 40)
    program.wait_for_size((172, 40))


# Starting


def test_a_second_start_shows_the_panel_and_ends(binary, environment, start):
    program = start()
    second = subprocess.run([binary], env=environment, timeout=20)
    assert second.returncode == 0
    program.wait_for_size(EXPANDED)


@pytest.mark.parametrize("ending", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_a_signal_ends_it_in_good_order(start, ending):
    program = start()
    program.process.send_signal(ending)
    assert program.process.wait(10) == 0


def test_started_by_nohup_it_outlives_its_terminal(desktop, binary):
    program = Program(desktop, ["nohup", binary, "--demo"])
    wait_until(program.is_shown, "the panel", program.describe)
    program.process.send_signal(signal.SIGHUP)
    assert stays(program.is_shown, 0.5)
    program.stop()


def test_a_demonstration_runs_beside_the_program(desktop, binary, start):
    start()
    demo = Program(desktop, [binary, "--demo"])
    wait_until(lambda: len(desktop.windows_of_class("orvelle")) >= 2, "second panel", demo.describe)
    assert demo.process.poll() is None
    demo.stop()


def run_without_display(binary, environment, *arguments):
    variables = {name: value for name, value in environment.items() if name != "DISPLAY"}
    return subprocess.run([binary, *arguments], env=variables, capture_output=True, text=True,
                          timeout=20)


def test_without_a_display_it_says_so_in_one_line(binary, environment):
    ended = run_without_display(binary, environment)
    assert ended.returncode == 1
    assert len(ended.stderr.strip().splitlines()) == 1


def test_an_unknown_option_is_refused_with_the_usage(binary, environment):
    ended = run_without_display(binary, environment, "--nonsense")
    assert ended.returncode == 2
    assert "usage" in ended.stderr.lower()


@pytest.mark.parametrize("option", ["--help", "--version"])
def test_help_and_version_need_no_display(binary, environment, option):
    ended = run_without_display(binary, environment, option)
    assert ended.returncode == 0
    assert ended.stdout.strip()
    assert not ended.stderr
