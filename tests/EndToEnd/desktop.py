"""A private desktop without a screen, and the program on it, driven by real key events."""

import ctypes
import glob
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import pointer
from processes import PATIENCE, Process, running_processes, wait_until

# No folder of services: those of this machine must not answer on a private desktop. What a test
# wants of them it names.
_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir={runtime}</listen>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# What the program says once its hotkey works.
LISTENING = "CGEvent tap monitoring started"

# For a sanitized program. The standing clock is preloaded, before the sanitizer's own library; what
# is known to leak is known by functions of libraries without frame pointers; and the locks of
# libraries that aren't sanitized can't be followed.
_SANITIZER_OPTIONS = {
    "ASAN_OPTIONS": "verify_asan_link_order=0:fast_unwind_on_malloc=0",
    "LSAN_OPTIONS": f"suppressions={Path(__file__).with_name('leaks.supp')}:print_suppressions=0",
    "TSAN_OPTIONS": "ignore_noninstrumented_modules=1",
}


class Desktop:
    """`with Desktop() as desktop:` gives an X server, a session bus, a window manager and a
    compositor, as far as they are wanted, and a home with an empty vault. All of it is private, in
    one temporary folder, and gone with the end of the block, or of the test by whatever means."""

    def __init__(self, *, bus=True, window_manager=True, compositor=True, bus_services=(),
                 size="1280x800", x_options=()):
        self._wants_bus = bus
        self._wants_window_manager = window_manager
        self._wants_compositor = compositor
        self._bus_services = bus_services
        self._size = size
        self._x_options = x_options
        self._processes = []

    def __enter__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="jotwell-"))
        self.vault = self._make_folder("vault")
        self.environment = {
            "HOME": str(self._make_folder("home")),
            "XDG_CACHE_HOME": str(self._make_folder("cache")),
            "XDG_CONFIG_HOME": str(self._make_folder("config")),
            "XDG_DATA_HOME": str(self._make_folder("data")),
            "XDG_RUNTIME_DIR": str(self._make_folder("runtime")),
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "LC_ALL": "C.UTF-8",
            "TZ": "UTC",
        }
        try:
            self._start()
        except BaseException:
            self.__exit__(*sys.exc_info())
            raise
        return self

    def __exit__(self, kind, *_):
        if kind and not issubclass(kind, (KeyboardInterrupt, unittest.SkipTest)):
            self._tell_what_happened()
        for process in reversed(self._processes):
            process.stop()
        for stray in self.strays():
            os.kill(stray, signal.SIGKILL)
        faults = [line for line in self.log() if line.startswith("qrc:")]
        shutil.rmtree(self.folder, ignore_errors=True)
        if faults and not kind:
            raise AssertionError("\n".join(["QML complains:", *faults]))

    # What runs on it

    def spawn(self, name, command, *, pass_fds=(), stdin=subprocess.DEVNULL, **environment):
        process = Process(
            name, command, self.environment | environment, self.folder, pass_fds, stdin)
        self._processes.append(process)
        return process

    def start_program(self, *, clock=None, by=(), **environment):
        """Starts Jotwell; with `clock`, time stands still at that moment for it; with `by`, that
        command becomes it."""
        if clock:
            environment |= _standing_clock(clock)
        self._listened = self._times_listening()
        return self.spawn("jotwell", [*by, program()], **_SANITIZER_OPTIONS, **environment)

    def start_window_manager(self):
        self.window_manager = self.spawn("openbox", ["openbox", "--sm-disable"])
        check = "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"
        wait_until(lambda: "window id" in self.ask(*check), "the window manager")

    def wake_window_manager(self):
        """openbox may sleep over a signal, or a window that came while it started."""
        self.ask("xdotool", "set_desktop", self.ask("xdotool", "get_desktop") or "0")

    def end_window_manager(self, number):
        """By that signal."""
        def has_ended():
            self.wake_window_manager()
            return not self.window_manager.is_running()
        self.window_manager.send(number)
        wait_until(has_ended, "the end of the window manager")

    def start_compositor(self):
        self.compositor = self.spawn(
            "picom", ["picom", "--backend", "xrender", "--config", "/dev/null"])
        wait_until(self._has_compositor, "the compositor")

    def stop_server(self):
        next(each for each in self._processes if each.name == "Xvfb").stop()

    def log(self):
        """The lines that Jotwell and Qt have logged on this desktop."""
        file = self.folder / "jotwell.err"
        return file.read_text(errors="replace").splitlines() if file.exists() else []

    def strays(self):
        """The ids of processes on this desktop that others than the test have started."""
        mark = f"XDG_RUNTIME_DIR={self.environment['XDG_RUNTIME_DIR']}\0".encode()
        ours = {process.pid() for process in self._processes}
        return [number for number in running_processes(mark) if number not in ours]

    def write_settings(self, **settings):
        folder = Path(self.environment["XDG_CONFIG_HOME"]) / "com.jotwell"
        folder.mkdir(mode=0o700, exist_ok=True)
        lines = [f"{name}={value}" for name, value in settings.items()]
        (folder / "Jotwell.ini").write_text("\n".join(["[General]", *lines, ""]))

    def notes(self):
        """The path of every file and folder in the vault, hidden ones too."""
        return sorted(self.vault.rglob("*"))

    # Hands and eyes

    def ask(self, *command):
        """The output of a command on this desktop, whatever its exit status."""
        return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                              timeout=PATIENCE).stdout.strip()

    def visible_windows(self):
        return self.ask("xdotool", "search", "--onlyvisible", "--name", "^Jotwell$").split()

    def wait_for_window(self):
        """Waits until the capture window is on the screen and has the keyboard."""
        wait_until(self._windows_of_a_woken_manager, "the capture window")
        wait_until(lambda: self.ask("xdotool", "getwindowfocus") in self.visible_windows(),
                   "the keyboard in the capture window")

    def call_up(self, keys="ctrl+alt+b"):
        """Shows the window of the program that was started last, by its hotkey."""
        wait_until(lambda: self._times_listening() > self._listened, "the hotkey")
        self.press(keys)
        self.wait_for_window()

    def wait_for_no_window(self):
        wait_until(lambda: not self.visible_windows(), "no capture window")

    def owns_name(self, name):
        return "true" in self.ask(
            "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
            "org.freedesktop.DBus.NameHasOwner", f"string:{name}")

    def type_text(self, text):
        self.ask("xdotool", "type", "--delay", "10", "--", text)

    def press(self, *keys):
        self.ask("xdotool", "key", *keys)

    def screenshot(self, path):
        self.ask("import", "-window", "root", str(path))

    def share_of(self, is_wanted):
        """How much of the screen, from 0 to 1, has a wanted colour, asked as (red, green, blue)."""
        shot = self._shot()
        pixels = [tuple(shot[i:i + 3]) for i in range(0, len(shot), 3 * 17)]  # one in 17 will do
        return sum(map(is_wanted, pixels)) / len(pixels)

    def places_of(self, is_wanted, area):
        """The places on the screen of a wanted colour, in an area of x, y, width and height."""
        left, top, width, height = area
        shot = self._shot("-crop", f"{width}x{height}+{left}+{top}")
        pixels = zip(shot[::3], shot[1::3], shot[2::3])
        return [(left + at % width, top + at // width)
                for at, pixel in enumerate(pixels) if is_wanted(pixel)]

    def pointer_shape(self):
        """What the pointer looks like: its size, hot spot and pixels."""
        return pointer.shape(self.environment["DISPLAY"])

    def wait_for_banner(self, is_its_colour):
        """Waits for a toast of that colour, which takes a thirtieth of the screen or more."""
        wait_until(lambda: self.share_of(is_its_colour) > 0.03, "the banner of a toast")

    def _windows_of_a_woken_manager(self):
        self.wake_window_manager()
        return self.visible_windows()

    def _times_listening(self):
        file = self.folder / "jotwell.out"
        return file.read_text(errors="replace").count(LISTENING) if file.exists() else 0

    def _shot(self, *options):
        """The screen by rows: a byte each for red, green and blue."""
        return subprocess.run(
            ["import", "-window", "root", *options, "-depth", "8", "rgb:-"],
            env=self.environment, capture_output=True, timeout=PATIENCE, check=True).stdout

    # How it comes and goes

    def _make_folder(self, name):
        path = self.folder / name
        path.mkdir(mode=0o700)
        return path

    def _start(self):
        number = self._spawn_and_read("Xvfb", lambda pipe: [
            "Xvfb", "-displayfd", pipe, "-screen", "0", f"{self._size}x24", "-noreset",
            "-nolisten", "tcp", *self._x_options])
        self.environment["DISPLAY"] = f":{number}"
        # The first key changes a new server's keyboard map, and while a window manager grabs its
        # keys anew a second one would pass it by.
        self.press("shift")
        if self._wants_bus:
            self._start_bus()
        if self._wants_window_manager:
            self.start_window_manager()
        if self._wants_compositor:
            self.start_compositor()

    def _start_bus(self):
        services = self._make_folder("services")
        for service in self._bus_services:
            (services / service.name).symlink_to(service)
        configuration = self.folder / "bus.conf"
        configuration.write_text(_BUS_CONFIGURATION.format(
            runtime=self.environment["XDG_RUNTIME_DIR"], services=services))
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._spawn_and_read(
            "dbus-daemon", lambda pipe: [
                "dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile",
                f"--print-address={pipe}"])

    def _spawn_and_read(self, name, command):
        """Starts what tells in one line on a pipe that it is ready, and gives that line."""
        reader, writer = os.pipe()
        self.spawn(name, command(str(writer)), pass_fds=[writer])
        os.close(writer)
        with open(reader) as pipe:
            line = pipe.readline().strip()
        if not line:
            raise AssertionError(f"{name} doesn't start")
        return line

    def _has_compositor(self):
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(x11.XOpenDisplay(self.environment["DISPLAY"].encode()))
        atom = x11.XInternAtom(display, b"_NET_WM_CM_S0", False)
        owner = x11.XGetSelectionOwner(display, atom)
        x11.XCloseDisplay(display)
        return owner != 0

    def _tell_what_happened(self):
        for name in dict.fromkeys(process.name for process in self._processes):
            process = next(each for each in self._processes if each.name == name)
            print(f"--- {name}\n{process.output()}", file=sys.stderr)
        notes = self.notes()
        print(f"--- vault: {len(notes)} entries", *notes[:50], sep="\n", file=sys.stderr)
        if "DISPLAY" in self.environment and "JOTWELL_ARTIFACTS" in os.environ:
            picture = Path(os.environ["JOTWELL_ARTIFACTS"]) / f"{Path(sys.argv[0]).stem}.png"
            self.screenshot(picture)
            print(f"--- the screen: {picture}", file=sys.stderr)


def is_green(colour):
    red, green, blue = colour
    return green > 80 and green > red + 60 and green > blue + 60


def is_red(colour):
    red, green, blue = colour
    return red > 150 and red > green + 60 and red > blue + 60


def program():
    return os.environ["JOTWELL_PROGRAM"]


class JumpingClock:
    """The machine's clock for a program that is started with this environment, until it jumps."""

    def __init__(self, desktop):
        self._file = desktop.folder / "clock"
        self._days = 0
        self.jump(0)
        self.environment = _other_clock(FAKETIME_TIMESTAMP_FILE=str(self._file),
                                        FAKETIME_NO_CACHE="1")

    def jump(self, days):
        self._days += days
        self._file.write_text(f"{self._days:+}d\n")

    def date(self):
        """The date that it shows, as 2024-03-05 in the desktop's time zone, which is UTC."""
        return time.strftime("%Y-%m-%d", time.gmtime(time.time() + self._days * 86400))


def _standing_clock(moment):
    return _other_clock(FAKETIME=moment)


def _other_clock(**settings):
    [library] = glob.glob("/usr/lib/*/faketime/libfaketimeMT.so.1")
    return {"LD_PRELOAD": library, "FAKETIME_DONT_FAKE_MONOTONIC": "1",
            "DONT_FAKE_MONOTONIC": "1", "NO_FAKE_STAT": "1", **settings}
