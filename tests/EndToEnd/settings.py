"""The settings window: opened from outside, worked by keyboard, and heard by a screen reader."""

import contextlib
import time
import unittest
from pathlib import Path

import accessibility
from accessibility import Role, ScreenReader
from desktop import Desktop
from processes import wait_until

SIZE = "900x600"
SAME_PRESS = 0.2  # seconds; a second press within half of it is taken for the first
K_WITH_COMMAND_AND_SHIFT = "40", "1179648"


class SettingsWindow:
    """Jotwell's settings; the program runs without them until `open`."""

    def __init__(self, desktop, **environment):
        self.desktop = desktop
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        self.program = desktop.start_program(**environment)
        wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program")

    def ask_for(self):
        self.desktop.ask(
            "gdbus", "call", "--session", "--dest", "com.jotwell.Jotwell", "--object-path",
            "/com/jotwell/Jotwell", "--method", "org.freedesktop.Application.ActivateAction",
            "settings", "[]", "{}")

    def ids(self):
        return self.desktop.ask("xdotool", "search", "--onlyvisible", "--name", "^Settings$").split()

    def has_focus(self):
        self.desktop.wake_window_manager()
        return self.desktop.ask("xdotool", "getwindowfocus") in self.ids()

    def open(self):
        self.ask_for()
        wait_until(self.has_focus, "the keyboard in the settings")

    def close(self):
        self.desktop.press("alt+F4")
        wait_until(lambda: not self.ids(), "no settings")

    def stored_hotkey(self):
        path = Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "com.jotwell/Jotwell.ini"
        lines = dict(line.split("=", 1) for line in path.read_text().splitlines() if "=" in line)
        return lines.get("GlobalHotkeyCode"), lines.get("GlobalHotkeyModifiers")


@contextlib.contextmanager
def settings(**environment):
    with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
        yield SettingsWindow(desktop, **environment)


class Settings(unittest.TestCase):
    def record(self, window, *keys):
        """From the sidebar: by Tab to the recorder, the keys, and by Tab to its last button."""
        window.desktop.press("Tab", "Return")
        window.desktop.press(*keys)
        window.desktop.press("Tab", "Tab", "space")

    def test_new_hotkey_by_keyboard(self):
        with settings() as window:
            window.open()
            self.record(window, "ctrl+shift+k")
            wait_until(lambda: window.stored_hotkey() == K_WITH_COMMAND_AND_SHIFT, "the new hotkey")
            window.close()
            window.desktop.press("ctrl+shift+k")
            window.desktop.wait_for_window()
            time.sleep(SAME_PRESS)
            window.desktop.press("ctrl+shift+k")
            window.desktop.wait_for_no_window()
            time.sleep(SAME_PRESS)
            window.desktop.press("ctrl+alt+b")
            time.sleep(SAME_PRESS)
            self.assertEqual(window.desktop.visible_windows(), [])

    def test_key_alone_is_refused(self):
        with settings() as window:
            window.open()
            self.record(window, "k")
            window.close()
            self.assertEqual(window.stored_hotkey(), (None, None))

    def test_open_window_comes_forward(self):
        with settings() as window:
            window.open()
            [first] = window.ids()
            self.assertIn(f"Geometry: {SIZE}",
                          window.desktop.ask("xdotool", "getwindowgeometry", first))
            window.desktop.start_program().exit_status()
            window.desktop.wait_for_window()
            window.open()
            self.assertEqual(window.ids(), [first])
            window.desktop.press("Escape")
            window.close()
            window.open()
            self.assertEqual(len(window.ids()), 1)

    def test_comes_back_from_an_icon(self):
        with settings() as window:
            window.open()
            window.desktop.ask("xdotool", "windowminimize", window.ids()[0])
            wait_until(lambda: not window.ids(), "the icon")
            window.open()

    def test_program_goes_on_without_its_settings(self):
        with settings() as window:
            for _ in range(10):
                window.open()
                window.close()
            window.desktop.start_program().exit_status()
            window.desktop.wait_for_window()
            warnings = [line for line in window.desktop.log() if "qrc:" in line or "QObject" in line]
            self.assertEqual(warnings, [])


class HeardSettings(unittest.TestCase):
    def test_all_that_is_shown_is_told(self):
        with settings(**accessibility.ENVIRONMENT) as window:
            window.open()
            reader = ScreenReader(window.desktop)

            def told():
                return reader.ask(lambda: [(item.role(), item.name()) for item in reader.walk()])

            wait_until(lambda: (Role.PUSH_BUTTON, "Record Shortcut") in told(), "the recorder")
            for expected in [(Role.LIST_ITEM, "Global Hotkey"), (Role.LIST_ITEM, "Updates"),
                             (Role.LIST_ITEM, "Other"), (Role.HEADING, "Status"),
                             (Role.LABEL, "Active"), (Role.LABEL, "Alt Ctrl B")]:
                self.assertIn(expected, told())
            window.desktop.press("Down", "Down")
            wait_until(lambda: (Role.CHECK_BOX, "Automatically check for updates") in told(),
                       "the updates")
            window.desktop.press("Down")
            wait_until(lambda: (Role.CHECK_BOX, "Launch at Login") in told(), "the rest")


if __name__ == "__main__":
    unittest.main()
