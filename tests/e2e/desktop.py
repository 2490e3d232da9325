"""A display of the test's own, what lives on it, and what can be seen and done there."""

import contextlib
import os
import pathlib
import re
import select
import subprocess
import tempfile
import threading
import time

from Xlib import X, Xatom, display as xdisplay, error
from Xlib.ext import record, shape, xtest
from Xlib.protocol import event

WIDTH, HEIGHT = 1512, 982
BOUND = 10.0


def wait_until(condition, what="the condition", explain=lambda: "", bound=BOUND):
    """Gives what `condition` gives as soon as that is true; fails after `bound` seconds."""
    end = time.monotonic() + bound
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"no {what} within {bound} s. {explain()}")
        time.sleep(0.005)  # the pace of looking, not a delay that anything relies on


def stays(condition, seconds):
    """Whether `condition` is true at every look for as long as this."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if not condition():
            return False
        time.sleep(0.005)
    return True


class Desktop:
    def __init__(self, environment):
        self.environment = environment
        self.processes = []

    def __enter__(self):
        reader, writer = os.pipe()
        self.log = tempfile.TemporaryFile()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
             "-noreset", "-nolisten", "tcp", "+extension", "RANDR", "+extension", "Composite"],
            pass_fds=[writer], stdout=self.log, stderr=self.log)
        os.close(writer)
        with os.fdopen(reader) as number:
            self.name = ":" + number.readline().strip()
        self.environment["DISPLAY"] = self.name
        self.display = xdisplay.Display(self.name)
        self.root = self.display.screen().root
        self.move_pointer(WIDTH // 2, HEIGHT - 100)
        return self

    def __exit__(self, *_):
        self.display.close()
        for process in reversed(self.processes):
            end_process(process)
        end_process(self.server)
        self.log.close()

    def spawn(self, command, **options):
        process = subprocess.Popen([str(part) for part in command], env=self.environment, **options)
        self.processes.append(process)
        return process

    def start_window_manager(self):
        # Its command runs when it is ready for windows, later than it says so on the root.
        ready = pathlib.Path(self.environment["XDG_RUNTIME_DIR"]) / "window-manager-ready"
        process = self.spawn(["openbox", "--sm-disable", "--startup", f"touch {ready}"],
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(ready.exists, "window manager")
        return process

    def start_compositor(self):
        process = self.spawn(["picom", "--backend", "xrender", "--config", "/dev/null"],
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        selection = self.atom("_NET_WM_CM_S0")
        wait_until(lambda: self.display.get_selection_owner(selection), "compositor")
        return process

    # What is there

    def atom(self, name):
        return self.display.intern_atom(name)

    def property(self, window, name):
        value = window.get_full_property(self.atom(name), X.AnyPropertyType)
        return list(value.value) if value else []

    def top_windows(self):
        """From the bottom to the top of the stack."""
        return self.root.query_tree().children

    def windows_of_class(self, name):
        found = []
        for window in self.top_windows():
            with contextlib.suppress(Exception):  # it may have gone meanwhile
                if window.get_wm_class() and name in window.get_wm_class():
                    found.append(window)
        return found

    def managed_windows(self):
        """The windows that the window manager looks after."""
        return [self.display.create_resource_object("window", number)
                for number in self.property(self.root, "_NET_CLIENT_LIST")]

    def windows_titled(self, title):
        """Those of them that bear the title and can be seen."""
        found = []
        for window in self.managed_windows():
            with contextlib.suppress(error.BadWindow):  # it may have gone meanwhile
                if window.get_wm_name() == title and self.is_mapped(window):
                    found.append(window)
        return found

    def active_window(self):
        return next(iter(self.property(self.root, "_NET_ACTIVE_WINDOW")), None)

    def is_mapped(self, window):
        try:
            return window.get_attributes().map_state == X.IsViewable
        except error.BadWindow:  # it has gone meanwhile
            return False

    def geometry(self, window):
        """x, y, width, height on the display."""
        shape_ = window.get_geometry()
        corner = window.translate_coords(self.root, 0, 0)
        return (-corner.x, -corner.y, shape_.width, shape_.height)

    def frame(self, window):
        """What the window manager has put around it: its place in the stack is the window's."""
        while True:
            parent = window.query_tree().parent
            if not parent or parent.id == self.root.id:
                return window
            window = parent

    def is_above(self, upper, lower):
        stack = [each.id for each in self.top_windows()]
        return stack.index(self.frame(upper).id) > stack.index(self.frame(lower).id)

    def title(self, window):
        """As a window manager shows it."""
        return bytes(self.property(window, "_NET_WM_NAME")).decode()

    def is_on_top(self, window):
        shown = [each for each in self.top_windows() if self.is_mapped(each)]
        return shown[-1].id == window.id

    def shape_boxes(self, window):
        boxes = window.shape_get_rectangles(shape.SK.Bounding).rectangles
        return [(box.x, box.y, box.width, box.height) for box in boxes]

    def focus(self):
        focused = self.display.get_input_focus().focus
        return focused if isinstance(focused, int) else focused.id

    def pixel(self, x, y):
        image = self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xffffffff)
        return image.data[2], image.data[1], image.data[0]

    def picture(self, x, y, width, height):
        return self.root.get_image(x, y, width, height, X.ZPixmap, 0xffffffff).data

    # What a user does

    def move_pointer(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        self.display.sync()

    def press(self, button):
        xtest.fake_input(self.display, X.ButtonPress, button)
        self.display.sync()

    def release(self, button):
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()

    def click(self, button=1, times=1):
        for _ in range(times):
            self.press(button)
            self.release(button)

    def wheel_down(self, notches=1):
        self.click(5, notches)

    def wheel_up(self, notches=1):
        self.click(4, notches)

    def swipe_left(self, notches=1):
        self.click(6, notches)

    def swipe_right(self, notches=1):
        self.click(7, notches)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "1", text], env=self.environment, check=True,
                       timeout=30)

    def keys(self, *names):
        """Presses each key once, by its X name."""
        subprocess.run(["xdotool", "key", "--delay", "1", *names], env=self.environment,
                       check=True, timeout=30)

    def resize(self, width, height):
        """Gives the display another size, not above its first, as in the monitor settings."""
        mode = f"{width}x{height}"
        timings = [0, width, 0, 0, width, height, 0, 0, height]
        for arguments in (["--newmode", mode, *timings], ["--addmode", "screen", mode],
                          ["--output", "screen", "--mode", mode]):
            subprocess.run(["xrandr", *map(str, arguments)], env=self.environment, check=True,
                           timeout=30)

    @contextlib.contextmanager
    def questions(self, window):
        """A list that grows by each answer that the display server gives to the window's program."""
        watcher = xdisplay.Display(self.name)
        answers = []
        begun = threading.Event()

        def take(reply):
            if reply.category == record.StartOfData:
                begun.set()
            elif reply.category == record.FromServer and len(reply.data):
                answers.append(bytes(reply.data[:32]))

        context = watcher.record_create_context(0, [window.id], [{
            "core_requests": (0, 0), "core_replies": (1, 127), "ext_requests": (0, 0, 0, 0),
            "ext_replies": (128, 255, 0, 65535), "delivered_events": (0, 0),
            "device_events": (0, 0), "errors": (0, 0), "client_started": False,
            "client_died": False}])
        watcher.sync()
        thread = threading.Thread(target=watcher.record_enable_context, args=(context, take))
        thread.start()
        assert begun.wait(BOUND)
        try:
            yield answers
        finally:
            self.display.record_disable_context(context)
            self.display.sync()
            thread.join(BOUND)
            watcher.close()

    # Other programs

    def open_window(self, x, y, width, height, **properties):
        """A window of another program, here of the test's own connection."""
        window = self.root.create_window(
            x, y, width, height, 0, X.CopyFromParent, event_mask=X.FocusChangeMask | X.KeyPressMask,
            background_pixel=0x3060a0)
        window.set_wm_name("Other program")
        window.set_wm_normal_hints(flags=0x1, x=x, y=y)  # the user chose the position
        for name, values in properties.items():
            kind = Xatom.ATOM if name.startswith("_NET_WM_WINDOW_TYPE") else Xatom.CARDINAL
            window.change_property(self.atom(name), kind, 32, values)
        window.map()
        wait_until(lambda: self.is_mapped(window), "window of another program")
        return window

    def open_dock(self, height):
        """A bar at the top that reserves its height."""
        return self.open_window(
            0, 0, WIDTH, height,
            _NET_WM_WINDOW_TYPE=[self.atom("_NET_WM_WINDOW_TYPE_DOCK")],
            _NET_WM_STRUT_PARTIAL=[0, 0, height, 0, 0, 0, 0, 0, 0, WIDTH - 1, 0, 0])

    def reserve(self, bar, height):
        """What a bar at the top does when it becomes higher."""
        bar.change_property(self.atom("_NET_WM_STRUT_PARTIAL"), Xatom.CARDINAL, 32,
                            [0, 0, height, 0, 0, 0, 0, 0, 0, WIDTH - 1, 0, 0])
        self.display.sync()

    def close_window(self, window):
        """As the close button of the window's frame does."""
        request = event.ClientMessage(
            window=window, client_type=self.atom("_NET_CLOSE_WINDOW"),
            data=(32, [X.CurrentTime, 2, 0, 0, 0]))
        self.root.send_event(request, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()

    def minimize(self, window):
        iconic = 3
        request = event.ClientMessage(window=window, client_type=self.atom("WM_CHANGE_STATE"),
                                      data=(32, [iconic, 0, 0, 0, 0]))
        self.root.send_event(request, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()

    def focus_window(self, window):
        window.set_input_focus(X.RevertToPointerRoot, X.CurrentTime)
        wait_until(lambda: self.focus() == window.id, "focus of another program")


class Running:
    """A process with a window of the class "orvelle"."""

    def __init__(self, desktop, command, **options):
        self.desktop = desktop
        self.output = tempfile.TemporaryFile(mode="w+")
        options.setdefault("stdout", self.output)
        self.process = desktop.spawn(command, stderr=self.output, **options)

    def window(self):
        """The panel: the one window that bypasses the window manager and bears the class."""
        hidden = None
        for window in self.desktop.windows_of_class("orvelle"):
            with contextlib.suppress(error.BadWindow):  # it may have gone meanwhile
                if not window.get_attributes().override_redirect:
                    continue
                if self.desktop.is_mapped(window):  # an open menu is above it
                    return window
                hidden = hidden or window
        return hidden

    def is_shown(self):
        if self.process.poll() is not None:
            raise AssertionError(f"ended with {self.process.returncode}. {self.describe()}")
        window = self.window()
        return window is not None and self.desktop.is_mapped(window)

    def geometry(self):
        return self.desktop.geometry(self.window())

    def size(self):
        return self.geometry()[2:]

    def wait_for_size(self, size, bound=BOUND):
        wait_until(lambda: self.size() == size, f"size {size}",
                   lambda: f"It is {self.size()}. {self.describe()}", bound)

    def describe(self):
        self.output.seek(0)
        return "Its words: " + self.output.read()

    def megabytes(self, figure):
        """A figure of its memory, by the kernel's name: VmRSS for now, VmHWM for the most so far."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return next(int(line.split()[1]) / 1024 for line in status.splitlines()
                    if line.startswith(f"{figure}:"))

    def stop(self):
        end_process(self.process)
        self.output.close()


class Program(Running):
    """Orvelle itself."""

    def enter(self):
        x, y, width, height = self.geometry()
        self.desktop.move_pointer(x + width // 2, y + height // 2)

    def leave(self):
        self.desktop.move_pointer(WIDTH // 2, HEIGHT - 100)

    def expand(self):
        self.enter()
        self.desktop.wheel_down()
        self.wait_for_size((566, 220))

    def wait_until_still(self):
        """Until nothing has moved in the panel for the time of some frames."""
        def is_still():
            before = self.desktop.picture(*self.geometry())
            return stays(lambda: self.desktop.picture(*self.geometry()) == before, 0.1)

        wait_until(is_still, "panel at rest", self.describe)


class Probe(Running):
    def __init__(self, desktop, path):
        super().__init__(desktop, [path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                         bufsize=1)
        self.lines = []
        self.wait_for("ready")

    def order(self, command):
        """Gives an order and waits until it is done."""
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        self.wait_for("done " + command.split()[0])

    def told(self):
        """What was told since the last question."""
        told, self.lines = self.lines, []
        return told

    def wait_for(self, pattern):
        """Reads on until a line matches; that line is used up, the others before it are kept."""
        end = time.monotonic() + BOUND
        for index in range(1 << 30):
            while index >= len(self.lines):
                ready, _, _ = select.select([self.process.stdout], [], [], 0.05)
                if ready:
                    line = os.read(self.process.stdout.fileno(), 65536).decode()
                    if not line:
                        raise AssertionError("the probe ended. " + self.describe())
                    self.lines += line.splitlines()
                elif time.monotonic() > end:
                    raise AssertionError(f"no {pattern!r} in {self.lines}. {self.describe()}")
            if re.search(pattern, self.lines[index]):
                return self.lines.pop(index)


def read_setting(binary, environment, key):
    """As the command line prints it; None for an unset key."""
    answer = subprocess.run([binary, "defaults", "read", key], env=environment, text=True,
                            capture_output=True, timeout=20)
    return answer.stdout.strip() if answer.returncode == 0 else None


def end_process(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
