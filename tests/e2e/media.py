"""Peers of the media panel: a player, a sound server, and what can be read of the panel."""

import pathlib
import subprocess

import dbus

from accessible import accessible_nodes, resting_place
from desktop import end_process, wait_until

FOLDER = pathlib.Path(__file__).parent
PLAYER_INTERFACE = "org.mpris.MediaPlayer2.Player"


def make_tone(folder, title, seconds):
    """A tone with tags and a cover, red all over."""
    cover = folder / "cover.png"
    tone = folder / f"{title}.flac"
    ffmpeg = ["ffmpeg", "-loglevel", "error", "-y"]
    subprocess.run([*ffmpeg, "-f", "lavfi", "-i", "color=c=red:s=64x64", "-frames:v", "1", cover],
                   check=True, timeout=60)
    subprocess.run([*ffmpeg, "-f", "lavfi", "-i", f"sine=frequency=440:duration={seconds}",
                    "-i", cover, "-map", "0", "-map", "1", "-c:a", "flac", "-c:v", "copy",
                    "-disposition:v", "attached_pic", "-metadata", f"title={title}",
                    "-metadata", "artist=The Generator", "-metadata", "album=Test Signals", tone],
                   check=True, timeout=60)
    return tone


class MpvPlayer:
    """mpv, which ends paused on the last tone."""

    def __init__(self, desktop, *tones, has_window=False):
        output = ["--vo=x11", "--force-window=yes"] if has_window else ["--vo=null"]
        self.process = desktop.spawn(
            ["mpv", "--no-config", "--no-terminal", "--ao=null", *output, "--keep-open=yes",
             "--script=/usr/lib/mpv-mpris/mpris.so", *tones],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.bus = dbus.bus.BusConnection(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        wait_until(lambda: self.bus.name_has_owner("org.mpris.MediaPlayer2.mpv"), "mpv on the bus")

    def property(self, name):
        player = self.bus.get_object("org.mpris.MediaPlayer2.mpv", "/org/mpris/MediaPlayer2")
        return player.Get(PLAYER_INTERFACE, name, dbus_interface=dbus.PROPERTIES_IFACE)

    def status(self):
        return str(self.property("PlaybackStatus"))

    def title(self):
        return str(self.property("Metadata").get("xesam:title", ""))

    def stop(self):
        self.bus.close()
        end_process(self.process)


class MisbehavingPlayer:
    def __init__(self, desktop, refusals=0):
        self.process = desktop.spawn(["/usr/bin/python3", FOLDER / "misbehaving_player.py",
                                      str(refusals)],
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                     bufsize=1)
        assert self.process.stdout.readline() == "ready\n"

    def behave(self, name):
        self.process.stdin.write(name + "\n")
        assert self.process.stdout.readline() == f"done {name}\n"


class SoundServer:
    """PulseAudio with two outputs that play into the void: "speakers", the default one, and
    "headphones"."""

    def __init__(self, environment, folder):
        self.environment = dict(environment, PULSE_RUNTIME_PATH=str(folder))
        socket = folder / "native"
        self.address = self.environment["PULSE_SERVER"] = f"unix:{socket}"
        self.start()

    def start(self):
        modules = [f"module-null-sink sink_name={name.lower()} "
                   f"sink_properties=device.description={name}"
                   for name in ("Speakers", "Headphones")]
        modules.append(f"module-native-protocol-unix socket={self.address[len('unix:'):]}")
        loads = [part for module in modules for part in ("-L", module)]
        self.process = subprocess.Popen(
            ["pulseaudio", "--daemonize=no", "--exit-idle-time=-1", "-n", *loads],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: self.ask("info").returncode == 0, "sound server")
        self.control("set-default-sink", "speakers")

    def ask(self, *arguments):
        return subprocess.run(["pactl", *arguments], env=self.environment, capture_output=True,
                              text=True, timeout=20)

    def control(self, *arguments):
        answer = self.ask(*arguments)
        assert answer.returncode == 0, answer.stderr
        return answer.stdout.strip()

    def volume(self, sink):
        """Percent, of the first channel."""
        return int(self.control("get-sink-volume", sink).split("%")[0].split()[-1])

    def stop(self):
        end_process(self.process)


class Panel:
    """The open media panel, as those read it who do not see."""

    def __init__(self, desktop):
        self.desktop = desktop
        desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                      stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def names(self):
        return [node["name"] for node in accessible_nodes(self.desktop)]

    def slider_box(self):
        return next((node["box"] for node in accessible_nodes(self.desktop)
                     if node["role"] == "slider"), None)

    def shows(self, *texts):
        """Waits for any of them."""
        wait_until(lambda: any(text in texts for text in self.names()), f"{texts} in the panel",
                   lambda: f"There is {self.names()}")

    def click(self, name, button=1):
        self.desktop.move_pointer(*resting_place(self.desktop, name))
        self.desktop.click(button)
