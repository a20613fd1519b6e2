"""The global hotkey, pressed while another program has the keyboard."""

import contextlib
import ctypes
import signal
import time
import unittest
from pathlib import Path

from desktop import Desktop
from processes import wait_until
from settings import SAME_PRESS, settings
from shortcuts_portal import DENYING, GRANTING, SILENT, ShortcutsPortal
from windows import capturing as capturing_window

CTRL, ALT, SUPER, A, B = 37, 64, 133, 38, 56  # the codes of their places
PRESSES = 1000
PRESSES_SECONDS = 10
REFUSED = "jotwell: The hotkey Ctrl+Alt+B belongs to another program"


@contextlib.contextmanager
def capturing(**options):
    """The same once the program listens for the hotkey."""
    with capturing_window(**options) as window:
        wait_until(lambda: "NSEvent monitoring only" in window.program.output()
                   or "dual monitoring" in window.program.output(), "the hotkey")
        yield window


class Grab(unittest.TestCase):
    def press_and_see(self, window, keys="ctrl+alt+b"):
        """The hotkey shows the window, and hides it again."""
        window.desktop.press(keys)
        window.desktop.wait_for_window()
        time.sleep(0.15)
        window.desktop.press(keys)
        window.desktop.wait_for_no_window()
        wait_until(window.desktop.other.has_focus, "the keyboard where it was")
        time.sleep(0.15)

    def set_lock(self, desktop, key, name):
        desktop.press(key)
        wait_until(lambda: f"{name}: on" in " ".join(desktop.ask("xset", "q").split()), name)

    def test_toggles_and_the_other_program_does_not_see_it(self):
        with capturing() as window:
            window.desktop.press("x")
            wait_until(lambda: "keysym 0x78, x" in window.desktop.other.keys(), "a usual key")
            for _ in range(3):
                self.press_and_see(window)
            self.assertNotIn("keysym 0x62, b", window.desktop.other.keys())
            self.assertEqual(window.program.errors().count("hotkey"), 0)

    def test_other_modifiers_are_other_keys(self):
        with capturing() as window:
            for keys in ("b", "ctrl+b", "alt+b", "ctrl+alt+shift+b", "ctrl+alt+super+b",
                         "ctrl+alt+n"):
                window.desktop.press(keys)
            time.sleep(0.5)
            self.assertEqual(window.desktop.visible_windows(), [])
            self.assertNotIn("Hotkey detected", window.program.output())

    def test_locks_do_not_matter(self):
        with capturing() as window:
            for key, name in ("Caps_Lock", "Caps Lock"), ("Num_Lock", "Num Lock"):
                self.set_lock(window.desktop, key, name)
                self.press_and_see(window)
            window.desktop.press("Caps_Lock")
            self.press_and_see(window)

    def test_key_is_a_place_on_the_keyboard(self):
        with capturing() as window:
            for layout in (["ru"], ["de"], ["us,ru"], ["us", "-variant", "dvorak"], ["us"]):
                window.desktop.ask("setxkbmap", *layout)
                time.sleep(0.3)
                self.press_place(window)

    def press_place(self, window):
        """The hotkey by its places, whatever the layout has there."""
        press_places(window.desktop, CTRL, ALT, B)
        window.desktop.wait_for_window()
        time.sleep(0.15)
        press_places(window.desktop, CTRL, ALT, B)
        window.desktop.wait_for_no_window()
        time.sleep(0.15)

    def test_second_layout_that_is_switched_to(self):
        with capturing() as window:
            window.desktop.ask("setxkbmap", "us,ru")
            time.sleep(0.3)
            switch_to_second_layout(window.desktop)
            press_places(window.desktop, A)
            wait_until(lambda: "Cyrillic_ef" in window.desktop.other.keys(), "the second layout")
            self.press_place(window)

    def test_modifiers_that_are_moved(self):
        with capturing() as window:
            window.desktop.ask("setxkbmap", "-option", "altwin:swap_alt_win")
            time.sleep(0.3)
            press_places(window.desktop, CTRL, SUPER, B)  # where Alt is now
            window.desktop.wait_for_window()

    def test_modifiers_that_the_map_gives_to_each_other(self):
        with capturing() as window:
            window.desktop.ask("xmodmap", *[word for line in (
                "clear mod1", "clear mod4", "add mod1 = Super_L", "add mod4 = Alt_L")
                for word in ("-e", line)])
            time.sleep(0.3)
            self.press_place(window)

    def test_another_hotkey_from_the_settings(self):
        with capturing(settings={"GlobalHotkeyCode": 49,
                                 "GlobalHotkeyModifiers": 0x40000 | 0x20000}) as window:
            self.press_and_see(window, "super+shift+space")
            window.desktop.press("ctrl+alt+b")
            time.sleep(0.5)
            self.assertEqual(window.desktop.visible_windows(), [])

    def test_held_by_another_program(self):
        with capturing(before=grab_elsewhere) as window:
            self.assertEqual(window.program.errors().count("hotkey"), 1)
            self.assertIn(REFUSED, window.program.errors())
            window.desktop.press("ctrl+alt+b")
            time.sleep(0.5)
            self.assertEqual(window.desktop.visible_windows(), [])
            window.show()
            window.hide()
            self.assertIn("Using NSEvent monitoring only", window.program.output())

    def test_key_is_free_once_the_program_has_ended(self):
        with capturing() as window:
            window.program.stop()
            grab_elsewhere(window.desktop)

    def test_many_presses(self):
        with capturing() as window:
            begin = time.monotonic()
            window.desktop.ask("xdotool", "keydown", "ctrl", "keydown", "alt", "key", "--delay",
                               str(1000 * PRESSES_SECONDS // PRESSES), "--repeat", str(PRESSES),
                               "b", "keyup", "alt", "keyup", "ctrl")
            self.assertLess(time.monotonic() - begin, 3 * PRESSES_SECONDS)
            self.assertGreater(window.program.output().count("Hotkey detected"), PRESSES * 0.9)
            self.assertTrue(window.program.is_running())
            self.assertNotIn("keysym 0x62, b", window.desktop.other.keys())
            time.sleep(0.5)
            if window.desktop.visible_windows():
                window.desktop.press("ctrl+alt+b")
                window.desktop.wait_for_no_window()
            time.sleep(0.15)
            self.press_and_see(window)

    def test_present_hotkey_is_recorded_again(self):
        with settings() as window:
            desktop = window.desktop
            wait_until(lambda: "dual monitoring" in window.program.output(), "the hotkey")
            window.open()
            desktop.press("Tab", "Return")
            press_places(desktop, CTRL, ALT, B)
            time.sleep(0.5)
            self.assertEqual(desktop.visible_windows(), [])
            self.assertTrue(window.has_focus())
            desktop.press("Tab", "Tab", "space")  # to the button that saves
            wait_until(lambda: window.stored_hotkey() == ("11", "1572864"), "the hotkey")
            time.sleep(SAME_PRESS)
            desktop.press("ctrl+alt+b")
            desktop.wait_for_window()

    def test_no_other_key_is_seen(self):
        with capturing() as window:
            window.desktop.type_text("hunter2 is a Secret")
            window.desktop.press("ctrl+alt+c", "ctrl+b", "F5")
            wait_until(lambda: "F5" in window.desktop.other.keys(), "the last key")
            self.press_and_see(window)
            seen = [line for line in window.program.output().splitlines() if "Event: " in line]
            self.assertEqual(len(seen), 2)
            self.assertTrue(all("keyCode=11, flags=1572864" in line for line in seen), seen)
            self.assertNotIn("hunter2", window.program.output())
            self.assertNotIn("Secret", window.program.output())

    def test_end_of_the_server_is_no_crash(self):
        with capturing() as window:
            window.desktop.stop_server()
            self.assertGreaterEqual(window.program.exit_status(), 0)


class Portal(unittest.TestCase):
    """Where another program has the key, or the X server no keys to give, the portal is asked."""

    def press_and_see(self, window, portal):
        for wait in window.desktop.wait_for_window, window.desktop.wait_for_no_window:
            portal.press()
            wait()
            time.sleep(0.15)

    def without_the_key(self, answer=None):
        def prepare(desktop):
            grab_elsewhere(desktop)
            if answer:
                desktop.portal = ShortcutsPortal(desktop, answer)
        return capturing(before=prepare)

    def permission(self, desktop):
        return Path(desktop.environment["HOME"]) / ".local/state/com.jotwell/global-hotkey-allowed"

    def works_without_it(self, window):
        window.show()
        window.hide()
        self.assertTrue(window.program.is_running())

    def test_shortcut_that_is_granted(self):
        with self.without_the_key(GRANTING) as window:
            portal = window.desktop.portal
            portal.wait_for_call("BindShortcuts")
            wait_until(self.permission(window.desktop).exists, "the permission")
            self.press_and_see(window, portal)
            self.assertEqual(portal.calls(), [
                "Register com.jotwell.Jotwell", "CreateSession",
                "BindShortcuts toggle-11-1572864 CTRL+ALT+b"])
            self.assertIn("Hotkey detected via NSEvent", window.program.output())

    def test_portal_that_is_started_again(self):
        with self.without_the_key(GRANTING) as window:
            window.desktop.portal.wait_for_call("BindShortcuts")
            window.desktop.portal.stop()
            portal = ShortcutsPortal(window.desktop)
            wait_until(lambda: " ".join(portal.calls()).count("BindShortcuts") == 2, "a new wish")
            time.sleep(0.2)
            self.press_and_see(window, portal)

    def test_portal_that_comes_late(self):
        with self.without_the_key() as window:
            self.works_without_it(window)
            portal = ShortcutsPortal(window.desktop)
            portal.wait_for_call("BindShortcuts")
            time.sleep(0.2)
            self.press_and_see(window, portal)

    def test_shortcut_that_is_denied(self):
        with self.without_the_key(DENYING) as window:
            window.desktop.portal.wait_for_call("BindShortcuts")
            time.sleep(0.2)
            window.desktop.portal.press()
            time.sleep(0.5)
            self.assertEqual(window.desktop.visible_windows(), [])
            self.assertFalse(self.permission(window.desktop).exists())
            self.works_without_it(window)

    def test_portal_that_never_answers(self):
        with self.without_the_key(SILENT) as window:
            window.desktop.portal.wait_for_call("CreateSession")
            self.works_without_it(window)
            window.program.send(signal.SIGTERM)
            self.assertEqual(window.program.exit_status(), 0)

    def test_portal_is_left_alone_where_the_grab_works(self):
        def prepare(desktop):
            desktop.portal = ShortcutsPortal(desktop)
        with capturing(before=prepare) as window:
            window.desktop.press("ctrl+alt+b")
            window.desktop.wait_for_window()
            self.assertEqual(window.desktop.portal.calls(), [])

    def test_wayland_session_has_only_the_portal(self):
        def prepare(desktop):
            desktop.environment["XDG_SESSION_TYPE"] = "wayland"
            desktop.portal = ShortcutsPortal(desktop)
            self.permission(desktop).parent.mkdir(parents=True)
            self.permission(desktop).touch()
        with capturing(before=prepare) as window:
            window.desktop.portal.wait_for_call("BindShortcuts")
            self.assertIn("Using NSEvent monitoring only", window.program.output())
            self.press_and_see(window, window.desktop.portal)
            window.desktop.press("ctrl+alt+b")
            wait_until(lambda: "keysym 0x62, b" in window.desktop.other.keys(), "the key")
            self.assertEqual(window.desktop.visible_windows(), [])

    def test_wayland_session_without_permission_is_not_asked(self):
        def prepare(desktop):
            desktop.environment["XDG_SESSION_TYPE"] = "wayland"
            desktop.portal = ShortcutsPortal(desktop)
        with capturing_window(before=prepare) as window:
            self.works_without_it(window)
            self.assertEqual(window.desktop.portal.calls(), [])
            self.assertNotIn("monitoring", window.program.output())

    def test_neither_key_nor_bus(self):
        with Desktop(bus=False) as desktop:
            grab_elsewhere(desktop)
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            program = desktop.start_program()
            wait_until(lambda: "NSEvent monitoring only" in program.output(), "the hotkey")
            time.sleep(0.5)
            self.assertTrue(program.is_running())


@contextlib.contextmanager
def display_of(desktop):
    """The X library and the desktop's display. xdotool would set the layout itself."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(desktop.environment["DISPLAY"].encode()))
    yield x11, display
    x11.XCloseDisplay(display)


def switch_to_second_layout(desktop):
    with display_of(desktop) as (x11, display):
        core_keyboard, second = 0x100, 1
        x11.XkbLockGroup(display, core_keyboard, second)


def press_places(desktop, *codes):
    """Presses these keys one by one and lets them go, the last one first."""
    with display_of(desktop) as (_, display):
        test = ctypes.CDLL("libXtst.so.6")
        for code in codes:
            test.XTestFakeKeyEvent(display, code, True, ctypes.c_ulong(0))
        for code in reversed(codes):
            test.XTestFakeKeyEvent(display, code, False, ctypes.c_ulong(0))


def grab_elsewhere(desktop):
    """Another program takes Ctrl+Alt+B."""
    holder = desktop.spawn("holder", [
        "/usr/bin/python3", "-c", _HOLDER], DISPLAY=desktop.environment["DISPLAY"])
    wait_until(lambda: "held" in holder.output(), "the other program's grab")
    return holder


_HOLDER = """
import ctypes, sys, time
x = ctypes.CDLL("libX11.so.6")
x.XOpenDisplay.restype = ctypes.c_void_p
x.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
x.XDefaultRootWindow.restype = ctypes.c_ulong
x.XGrabKey.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_uint, ctypes.c_ulong,
                       ctypes.c_int, ctypes.c_int, ctypes.c_int]
x.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
display = x.XOpenDisplay(None)
CONTROL, ALT, B, ASYNC = 4, 8, 56, 1
x.XGrabKey(display, B, CONTROL | ALT, x.XDefaultRootWindow(display), 0, ASYNC, ASYNC)
x.XSync(display, 0)
print("held", flush=True)
time.sleep(600)
"""


if __name__ == "__main__":
    unittest.main()
