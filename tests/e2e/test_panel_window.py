"""The panel's window, without the program's rules: what X sees of it, and what it tells."""

import pytest
from Xlib import X

from desktop import HEIGHT, WIDTH, stays, wait_until

LARGE = (473, 0, 566, 220)


def show(probe):
    probe.order("front")
    wait_until(probe.is_shown, "panel")
    return probe.window()


@pytest.fixture(params=["bare", "openbox", "openbox and picom"])
def stage(request, desktop):
    if "openbox" in request.param:
        desktop.start_window_manager()
    if "picom" in request.param:
        desktop.start_compositor()
    return desktop


def test_stands_where_it_was_put_without_taking_the_focus(stage, probe):
    other = stage.open_window(100, 300, 400, 300)
    stage.focus_window(other)
    window = show(probe)
    assert probe.geometry() == (666, 0, 180, 32)
    assert window.get_wm_class() == ("orvelle", "orvelle")
    assert window.get_wm_name() == "Probe"
    assert stage.focus() == other.id
    assert window.get_attributes().override_redirect


def test_a_jump_of_the_frame_gives_neither_entry_nor_exit(stage, probe):
    show(probe)
    stage.move_pointer(756, 16)
    probe.wait_for("entered")
    probe.order("frame 473 762 566 220")
    assert probe.geometry() == LARGE
    stage.move_pointer(756, 100)
    probe.order("frame 666 950 180 32")
    probe.order("frame 473 762 566 220")
    stage.move_pointer(757, 100)
    probe.wait_for("entered")
    stage.move_pointer(100, 500)
    probe.wait_for("exited")
    assert "entered" not in probe.told()


def test_growing_under_a_resting_pointer_is_no_entry(stage, probe):
    show(probe)
    stage.move_pointer(500, 100)
    probe.order("frame 473 762 566 220")
    probe.order("pointer")
    assert "entered" not in probe.told()
    stage.move_pointer(501, 100)
    probe.wait_for("entered")


def test_a_pointer_that_comes_while_the_panel_appears_enters_it(stage, probe):
    probe.order("lead 756 16")
    show(probe)
    probe.wait_for("entered")


def test_appearing_under_a_resting_pointer_is_no_entry(stage, probe):
    stage.move_pointer(756, 16)
    show(probe)
    probe.order("pointer")
    assert "entered" not in probe.told()
    stage.move_pointer(757, 16)
    probe.wait_for("entered")


def test_the_mask_follows_the_shape_only_without_a_compositor(openbox, probe):
    show(probe)
    probe.order("shape 8 0 164 32")
    assert openbox.shape_boxes(probe.window()) == [(8, 0, 164, 32)]
    probe.order("frame 473 762 566 220")
    assert openbox.shape_boxes(probe.window()) == [(201, 0, 164, 32)]

    probe.told()
    compositor = openbox.start_compositor()
    probe.wait_for("composited 1")
    wait_until(lambda: openbox.shape_boxes(probe.window()) == [(0, 0, 566, 220)], "whole window")
    compositor.terminate()
    probe.wait_for("composited 0")
    wait_until(lambda: openbox.shape_boxes(probe.window()) == [(201, 0, 164, 32)], "shape again")


def test_leaving_beside_the_shape_is_noticed(desktop, probe):
    """Nobody reports a pointer that leaves the frame from beside the window's shape."""
    show(probe)
    probe.order("frame 473 762 566 220")
    probe.order("shape 193 0 180 32")
    desktop.move_pointer(756, 16)
    probe.wait_for("entered")
    desktop.move_pointer(756, 100)
    probe.order("pointer")
    assert "exited" not in probe.told()
    desktop.move_pointer(100, 500)
    probe.wait_for("exited")


def test_stays_above_other_windows(stage, probe):
    window = show(probe)
    other = stage.open_window(600, 0, 300, 300)
    wait_until(lambda: stage.is_on_top(window), "panel on top")
    other.configure(stack_mode=X.Above)
    stage.display.sync()
    wait_until(lambda: stage.is_on_top(window), "panel on top again")


def test_stays_above_a_full_screen_window(openbox, probe):
    window = show(probe)
    full = openbox.open_window(
        0, 0, WIDTH, HEIGHT, _NET_WM_STATE=[openbox.atom("_NET_WM_STATE_FULLSCREEN")])
    openbox.focus_window(full)
    assert stays(lambda: openbox.is_on_top(window), 0.2)


def test_a_menu_of_another_program_stays_above_the_panel(desktop, probe):
    window = show(probe)
    menu = desktop.root.create_window(600, 0, 300, 300, 0, X.CopyFromParent, override_redirect=True)
    menu.map()
    desktop.display.sync()
    assert stays(lambda: not desktop.is_on_top(window), 0.2)


def test_follows_a_window_manager_that_comes_and_goes(desktop, probe):
    probe.told()
    manager = desktop.start_window_manager()
    probe.wait_for("manager 1")
    manager.kill()
    probe.wait_for("manager 0")
    window = show(probe)
    desktop.open_window(600, 0, 300, 300)
    wait_until(lambda: desktop.is_on_top(window), "panel on top")


def test_lends_itself_the_focus_and_gives_it_back(stage, probe):
    other = stage.open_window(100, 300, 400, 300)
    stage.focus_window(other)
    window = show(probe)
    probe.order("key")
    wait_until(lambda: stage.focus() == window.id, "focus")
    probe.order("resign")
    wait_until(lambda: stage.focus() == other.id, "focus given back")


def test_does_not_take_the_focus_back_from_others(desktop, probe):
    first = desktop.open_window(100, 300, 100, 100)
    second = desktop.open_window(300, 300, 100, 100)
    desktop.focus_window(first)
    window = show(probe)
    probe.order("key")
    wait_until(lambda: desktop.focus() == window.id, "focus")
    desktop.focus_window(second)
    probe.order("resign")
    assert desktop.focus() == second.id


def test_a_focus_whose_window_has_gone_falls_to_the_pointer(desktop, probe):
    other = desktop.open_window(100, 300, 100, 100)
    desktop.focus_window(other)
    window = show(probe)
    probe.order("key")
    wait_until(lambda: desktop.focus() == window.id, "focus")
    other.unmap()
    desktop.display.sync()
    probe.order("resign")
    wait_until(lambda: desktop.focus() == X.PointerRoot, "focus at the pointer")


def test_a_press_elsewhere_gives_the_focus_back(stage, probe):
    other = stage.open_window(100, 300, 400, 300)
    stage.focus_window(other)
    window = show(probe)
    probe.order("key")
    wait_until(lambda: stage.focus() == window.id, "focus")
    stage.move_pointer(300, 450)
    stage.click()
    probe.wait_for("press elsewhere")
    wait_until(lambda: stage.focus() == other.id, "focus given back")


def test_presses_are_told_apart(stage, probe):
    show(probe)
    stage.open_window(100, 300, 400, 300)
    stage.move_pointer(756, 16)
    stage.click()
    probe.wait_for("press here")
    stage.move_pointer(300, 450)
    stage.click(3)
    stage.click(5)
    stage.click(1)
    probe.wait_for("press elsewhere")
    probe.order("pointer")
    told = probe.told()
    assert not [line for line in told if line.startswith("press")]


@pytest.mark.parametrize("button, deltas", [(5, "0 20"), (4, "0 -20"), (7, "20 0"), (6, "-20 0")])
def test_a_wheel_notch_counts_twenty_points(desktop, probe, button, deltas):
    show(probe)
    desktop.move_pointer(700, 10)
    desktop.click(button)
    line = probe.wait_for("scroll")
    assert line.replace("-0 ", "0 ") == f"scroll {deltas} at 34 22 panel 1"


def test_quick_notches_are_one_stroke_that_is_told_at_every_notch(desktop, probe):
    show(probe)
    desktop.move_pointer(700, 10)
    desktop.click(5, times=3)
    for sum in (20, 40, 60):
        assert probe.wait_for("scroll").startswith(f"scroll -0 {sum} at")


def test_screens_end_where_bars_begin(openbox, probe):
    probe.wait_for("manager 1")
    probe.order("screens")
    assert probe.wait_for("screen ") == "screen 0 0 1512 982 visible 0 0 1512 982 top 0 beside none none"
    openbox.open_dock(28)
    probe.wait_for("screens changed")
    probe.order("screens")
    assert "visible 0 0 1512 954" in probe.wait_for("screen ")


def test_without_a_window_manager_nothing_is_reserved(desktop, probe):
    desktop.open_dock(28)
    probe.order("screens")
    assert "visible 0 0 1512 982" in probe.wait_for("screen ")


def test_a_new_size_of_the_display_is_told_once(desktop, probe):
    desktop.resize(1280, 800)
    probe.wait_for("screens changed")
    probe.order("screens")
    assert probe.wait_for("screen ").startswith("screen 0 0 1280 800 visible 0 0 1280 800")
    assert "screens changed" not in probe.told()


def test_a_notch_is_what_the_settings_say(desktop, probe):
    for key, value in (("safeAreaTop", 37), ("auxiliaryLeftWidth", 670), ("auxiliaryRightWidth", 670)):
        probe.order(f"set notch.{key} {value}")
    probe.wait_for("screens changed")
    assert "screens changed" not in probe.told()
    probe.order("screens")
    assert probe.wait_for("screen ").endswith(
        "top 37 beside 0 945 670 37 842 945 670 37")
    probe.order("set notch.auxiliaryLeftWidth -1")
    probe.order("screens")
    assert probe.wait_for("screen ").endswith("top 37 beside none none")


def test_the_pointer_is_in_screen_coordinates(desktop, probe):
    desktop.move_pointer(10, 0)
    probe.order("pointer")
    assert probe.wait_for("pointer ") == "pointer 10.5 981.5"


def test_is_taken_away_and_brought_back(stage, probe):
    window = show(probe)
    probe.order("out")
    wait_until(lambda: not stage.is_mapped(window), "panel taken away")
    probe.order("front")
    wait_until(lambda: stage.is_mapped(window), "panel brought back")
    assert probe.geometry() == (666, 0, 180, 32)


def test_is_drawn_translucent_where_nothing_is(openbox, probe):
    openbox.start_compositor()
    show(probe)
    wait_until(lambda: openbox.pixel(756, 16) == (0, 0, 0), "the probe's black")
