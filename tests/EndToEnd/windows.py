"""The capture window among the windows and screens of a desktop, as the X server has them."""

import contextlib
import re

from desktop import Desktop
from processes import wait_until

SIZE = 860, 600
CARD = 800, 164
CORNER = 12  # the radius of the card's corners


class OtherWindow:
    """A white window of another program, which notes the clicks and keys that it gets."""

    def __init__(self, desktop, geometry, name="Behind"):
        self._desktop = desktop
        self._process = desktop.spawn("xev", [
            "stdbuf", "-oL", "xev", "-name", name, "-geometry", geometry,
            "-event", "button", "-event", "keyboard"])
        self._name = name
        self.id = wait_until(self._find, "another window")
        self.focus()

    def _find(self):
        self._desktop.wake_window_manager()
        return self._desktop.ask("xdotool", "search", "--onlyvisible", "--name", f"^{self._name}$")

    def focus(self):
        for way in "windowactivate", "windowfocus":  # the first needs a window manager
            self._desktop.ask("xdotool", way, self.id)
        wait_until(self.has_focus, "the keyboard in the other window")

    def has_focus(self):
        return self._desktop.ask("xdotool", "getwindowfocus") == self.id

    def has_frame(self):
        """A window manager has it in its hands."""
        tree = self._desktop.ask("xwininfo", "-tree", "-id", self.id)
        return not re.search(r"Parent window id: .*\(the root window\)", tree)

    def clicks(self):
        return self._process.output().count("ButtonPress event")

    def keys(self):
        """What it has noted of everything that it got."""
        return self._process.output()


class CaptureWindow:
    """Jotwell's window; the program runs hidden until `show`."""

    def __init__(self, desktop, settings=None, **environment):
        self.desktop = desktop
        desktop.write_settings(
            ObsidianFolderPath=desktop.vault, OnboardingCompleted="true", **(settings or {}))
        self.program = desktop.start_program(**environment)
        wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program")

    def toggle(self):
        if self.desktop.start_program().exit_status():
            raise AssertionError("The second start fails")

    def show(self):
        self.toggle()
        self.desktop.wait_for_window()
        [self.id] = self.desktop.visible_windows()

    def hide(self):
        self.toggle()
        self.desktop.wait_for_no_window()

    def place(self):
        """Its rectangle on the screen in pixels: x, y, width and height."""
        told = wait_until(lambda: self.desktop.ask("xwininfo", "-id", self.id), "its place")
        return tuple(int(re.search(rf"{name}: +(-?\d+)", told)[1]) for name in (
            "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def middle(self):
        x, y, width, height = self.place()
        return x + width // 2, y + height // 2

    def wait_for_middle(self, place, scale=1):
        """Waits until its middle is there and it has its size, each but for a pixel."""
        def is_there():
            x, y = self.middle()
            near = abs(x - place[0]) <= 1 and abs(y - place[1]) <= 1
            size = tuple(round(length * scale) for length in SIZE)
            return near and self.place()[2:] == size
        try:
            wait_until(is_there, "it", patience=10)
        except AssertionError:
            raise AssertionError(f"{self.place()} isn't around {place} at {scale}") from None

    def properties(self, *names):
        return self.desktop.ask("xprop", "-id", self.id, *names)

    def click(self, x, y, scale=1):
        """Clicks at a place that is told from the card's upper left corner, and waits until that is
        over."""
        left, top = self.middle()
        x, y = (round(place * scale) for place in (x - CARD[0] / 2, y - CARD[1] / 2))
        self.desktop.ask("xdotool", "mousemove", "--sync", str(left + x), str(top + y), "click",
                         "1", "sleep", "0.1")


@contextlib.contextmanager
def capturing(*, environment=None, settings=None, before=None, **options):
    """The hidden capture window over a white one that covers the desktop and has the keyboard.
    `before` is done on the desktop before the program starts."""
    with Desktop(**options) as desktop:
        desktop.other = OtherWindow(desktop, f"{options.get('size', '1280x800')}+0+0")
        if before:
            before(desktop)
        yield CaptureWindow(desktop, settings, **(environment or {}))


def is_black(colour):
    return max(colour) < 60


def is_white(colour):
    return min(colour) > 250
