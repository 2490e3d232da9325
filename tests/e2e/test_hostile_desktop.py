"""A desktop whose other programs take the panel's window away, fall silent, or stop altogether."""

import os
import pathlib
import signal
import socket
import subprocess
import time

import pytest
from Xlib import X
from Xlib.ext import shape
from Xlib.protocol import event

from desktop import Desktop, Program, end_process, wait_until

EXPANDED = (566, 220)
COLLAPSED = (180, 32)


# The window, from outside


def close_politely(desktop, window):
    protocols = desktop.atom("WM_PROTOCOLS")
    window.send_event(event.ClientMessage(
        window=window, client_type=protocols,
        data=(32, [desktop.atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0])))


def unmap(_, window):
    window.unmap()


def reparent(desktop, window):
    other = desktop.open_window(100, 500, 300, 200)
    window.reparent(other, 10, 10)


def destroy(_, window):
    window.destroy()


def empty_shape(desktop, window):
    for kind in (shape.SK.Bounding, shape.SK.Input):
        window.shape_rectangles(shape.SO.Set, kind, X.Unsorted, 0, 0, [])


@pytest.mark.parametrize("compositor", [False, True], ids=["bare", "composited"])
@pytest.mark.parametrize("deed", [close_politely, unmap, reparent, destroy, empty_shape])
def test_a_panel_that_was_taken_away_comes_back_at_the_next_start_and_works(
        openbox, binary, environment, start, deed, compositor):
    if compositor:
        openbox.start_compositor()
    program = start()
    deed(openbox, program.window())
    openbox.display.sync()
    subprocess.run([binary], env=environment, timeout=20, check=True)

    def is_back():
        window = program.window()
        return window and openbox.is_mapped(window) and openbox.geometry(window) == \
            ((1512 - 566) // 2, 0, *EXPANDED) and openbox.shape_boxes(window)

    wait_until(is_back, "panel", program.describe)
    # It follows pointer and wheel as ever.
    program.enter()
    program.leave()
    openbox.click()  # beside it
    program.wait_for_size(COLLAPSED)
    program.enter()
    wait_until(lambda: program.size() not in (COLLAPSED, EXPANDED), "hover bar", program.describe)
    openbox.wheel_down()
    program.wait_for_size(EXPANDED)


# Its socket


def test_five_hundred_silent_peers_delay_nothing(binary, environment, start):
    program = start()
    path = pathlib.Path(environment["XDG_RUNTIME_DIR"]) / "orvelle.sock"
    peers = []
    for _ in range(500):
        peer = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        peer.connect(str(path))
        peers.append(peer)
    began = time.monotonic()
    subprocess.run([binary], env=environment, timeout=20, check=True)
    program.wait_for_size(EXPANDED)
    assert time.monotonic() - began < 3
    kept = len(os.listdir(f"/proc/{program.process.pid}/fd"))
    assert kept < 200, "descriptors of peers that say nothing are not all kept"
    for peer in peers:
        peer.close()


# What stops


@pytest.fixture
def frozen():
    """Stops a process in its tracks; it goes on before the desktop is taken down."""
    stopped = []

    def freeze(process):
        process.send_signal(signal.SIGSTOP)
        stopped.append(process)

    yield freeze
    for process in stopped:
        process.send_signal(signal.SIGCONT)


@pytest.mark.parametrize("is_busy", [False, True], ids=["idle", "drawing"])
def test_a_signal_ends_it_though_the_display_has_stopped(environment, binary, settings, is_busy):
    with Desktop(environment) as desktop:
        settings("hasCompletedOnboarding", "true")
        program = Program(desktop, [binary])
        wait_until(program.is_shown, "panel", program.describe)
        if is_busy:
            program.enter()
        desktop.server.send_signal(signal.SIGSTOP)
        try:
            began = time.monotonic()
            program.process.send_signal(signal.SIGTERM)
            assert program.process.wait(10) == 0
            assert time.monotonic() - began < 2.2
        finally:
            desktop.server.send_signal(signal.SIGCONT)


@pytest.fixture
def bus_process(tmp_path):
    """A bus in a process that a test may stop; gives the process and its address."""
    address = f"unix:path={tmp_path}/stoppable-bus"
    configuration = tmp_path / "stoppable-bus.conf"
    configuration.write_text(
        f'<busconfig><type>session</type><listen>{address}</listen><policy context="default">'
        '<allow send_destination="*" eavesdrop="true"/><allow own="*"/></policy></busconfig>')
    process = subprocess.Popen(
        ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address=1"],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    yield process, process.stdout.readline().strip()
    end_process(process)


def test_a_frozen_session_bus_does_not_keep_the_panel_from_coming(openbox, environment, start,
                                                                  bus_process, frozen):
    process, environment["DBUS_SESSION_BUS_ADDRESS"] = bus_process
    frozen(process)
    program = start()
    program.expand()
    assert program.describe().count("session bus does not answer") == 1
