"""The desktop's tray gets Jotwell's item, whichever of the two is there first."""

import contextlib
import shutil
import unittest
from pathlib import Path

from desktop import Desktop
from notifier_tray import NotifierTray
from processes import wait_until

ICON = '"jotwell": ("jotwell" "jotwell")  2'  # a window of 22 pixels or so
ICONS = Path(__file__).parents[2] / "resources/icons"
SYMBOLIC = "com.jotwell.Jotwell-symbolic"


class X11Tray(unittest.TestCase):
    def start_tray(self, desktop):
        desktop.spawn("trayer", ["trayer", "--widthtype", "request"])
        wait_until(lambda: '"panel"' in self.windows(desktop), "the tray")

    def start_program(self, desktop):
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        desktop.start_program()

    def windows(self, desktop):
        return desktop.ask("xwininfo", "-root", "-tree")

    def wait_for_icon(self, desktop):
        wait_until(lambda: ICON in self.windows(desktop), "the icon in the tray")

    def test_tray_that_is_there(self):
        for bus in True, False:
            with self.subTest(bus=bus), Desktop(bus=bus) as desktop:
                self.start_tray(desktop)
                self.start_program(desktop)
                self.wait_for_icon(desktop)

    def test_tray_that_comes_later(self):
        with Desktop() as desktop:
            self.start_program(desktop)
            desktop.call_up()  # by then it has looked for a tray
            self.assertNotIn(ICON, self.windows(desktop))
            self.start_tray(desktop)
            self.wait_for_icon(desktop)


class NotifierTrays(unittest.TestCase):
    """Trays on the session bus, as most desktops have them."""

    @contextlib.contextmanager
    def program(self, **settings):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true",
                                   **settings)
            tray = NotifierTray(desktop)
            program = desktop.start_program()
            tray.wait_for_item()
            yield desktop, tray, program

    def shortcuts(self, tray):
        return {entry["label"]: entry.get("shortcut") for entry in tray.menu() if "label" in entry}

    def test_menu_has_its_entries_and_keys(self):
        with self.program() as (_, tray, _):
            labels = [entry.get("label", entry.get("type")) for entry in tray.menu()]
            self.assertEqual(labels, ["Open", "separator", "Settings", "separator",
                                      "Check for Updates...", "separator", "Quit"])
            self.assertEqual(self.shortcuts(tray), {
                "Open": [["Control", "Alt", "B"]], "Settings": None, "Check for Updates...": None,
                "Quit": [["Control", "Q"]]})
            self.assertEqual(tray.property("ToolTip")[2], "Jotwell")

    def test_menu_shows_the_hotkey_of_the_settings(self):
        hotkey = {"GlobalHotkeyCode": 49, "GlobalHotkeyModifiers": 0x20000 | 0x40000}
        with self.program(**hotkey) as (_, tray, _):
            self.assertEqual(self.shortcuts(tray)["Open"], [["Super", "Shift", "Space"]])

    def test_icon_goes_by_its_name_where_that_gives_it_the_colour_of_the_panel(self):
        for desktop_name, name in ("ubuntu:GNOME", SYMBOLIC), ("KDE", SYMBOLIC), ("XFCE", ""):
            with self.subTest(desktop_name), Desktop() as desktop:
                data = Path(desktop.environment["XDG_DATA_HOME"])
                folder = data / "icons/hicolor/symbolic/apps"
                folder.mkdir(parents=True)
                shutil.copy(ICONS / f"{SYMBOLIC}.svg", folder)
                desktop.write_settings(OnboardingCompleted="true")
                tray = NotifierTray(desktop)
                desktop.start_program(XDG_CURRENT_DESKTOP=desktop_name)
                tray.wait_for_item()
                self.assertEqual(tray.property("IconName"), name)
                self.assertTrue(tray.property("IconPixmap"))

    def test_icon_that_is_not_installed_is_sent(self):
        with Desktop() as desktop:
            desktop.write_settings(OnboardingCompleted="true")
            tray = NotifierTray(desktop)
            desktop.start_program(XDG_CURRENT_DESKTOP="KDE")
            tray.wait_for_item()
            self.assertFalse(tray.property("IconName"))
            self.assertTrue(tray.property("IconPixmap"))

    def test_open_toggles_the_window(self):
        with self.program() as (desktop, tray, _):
            tray.click("Open")
            desktop.wait_for_window()
            tray.click("Open")
            desktop.wait_for_no_window()

    def test_plain_click_toggles_the_window(self):
        with self.program() as (desktop, tray, _):
            tray.activate()
            desktop.wait_for_window()

    def test_quit_ends_the_program(self):
        with self.program() as (_, tray, program):
            tray.click("Quit")
            self.assertEqual(program.exit_status(), 0)

    def test_tray_that_is_started_anew_gets_the_item_again(self):
        with self.program() as (desktop, tray, _):
            for _ in range(3):
                tray.stop()
                tray = NotifierTray(desktop)
                tray.wait_for_item()
            tray.click("Open")
            desktop.wait_for_window()

    def test_tray_that_comes_late(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            desktop.start_program()
            desktop.call_up()  # by then it has looked for a tray
            tray = NotifierTray(desktop)
            tray.wait_for_item()
            tray.click("Open")
            desktop.wait_for_no_window()


if __name__ == "__main__":
    unittest.main()
