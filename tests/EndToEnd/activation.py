"""The desktop starts what is installed, by the bus: whatever it asks for comes on the screen, once."""

import os
import shlex
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import onboarding
from desktop import Desktop
from processes import wait_until

NAME = "com.jotwell.Jotwell"
APPLICATION = ["gdbus", "call", "--session", "--dest", NAME, "--object-path",
               "/com/jotwell/Jotwell", "--method"]
ANSWER = "()"
# What menus and docks do with an entry.
MENU = f"""from gi.repository import Gio, GLib
Gio.DesktopAppInfo.new("{NAME}.desktop").launch([], None)
GLib.MainLoop().run()"""
# What a session does with an entry of the autostart folder.
LOGIN = """import sys
from gi.repository import Gio, GLib
Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch([], None)
GLib.MainLoop().run()"""
SETTLED = 0.7  # seconds, for a second toggle to have come, were there one


class Activation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="jotwell-")
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = Path(folder.name)
        subprocess.run(["cmake", "--install", os.environ["JOTWELL_BUILD"], "--prefix", cls.prefix],
                       check=True, capture_output=True)
        os.environ["JOTWELL_PROGRAM"] = str(cls.prefix / "bin/jotwell")
        cls.entry = cls.prefix / f"share/applications/{NAME}.desktop"
        cls.service = cls.prefix / f"share/dbus-1/services/{NAME}.service"

    def desktop(self, **settings):
        desktop = self.enterContext(Desktop(bus_services=[self.service]))
        desktop.write_settings(ObsidianFolderPath=desktop.vault, **settings)
        return desktop

    def activate(self, desktop):
        return desktop.ask(*APPLICATION, "org.freedesktop.Application.Activate", "{}")

    def act(self, desktop, action):
        return desktop.ask(*APPLICATION, "org.freedesktop.Application.ActivateAction", action,
                           "[]", "{}")

    def commands_of_entry(self):
        lines = self.entry.read_text().splitlines()
        return [shlex.split(line.removeprefix("Exec=")) for line in lines
                if line.startswith("Exec=gapplication ")]

    def quit(self, desktop):
        self.assertEqual(self.act(desktop, "quit"), ANSWER)
        wait_until(lambda: not desktop.strays(), "the end of the program")
        self.assertFalse(desktop.owns_name(NAME))

    def windows(self, desktop, title):
        desktop.wake_window_manager()
        return desktop.ask("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()

    def test_first_activation_shows_the_window_and_the_second_hides_it(self):
        desktop = self.desktop(OnboardingCompleted="true")
        self.assertFalse(desktop.owns_name(NAME))
        self.assertEqual(self.activate(desktop), ANSWER)
        desktop.wait_for_window()
        time.sleep(SETTLED)
        self.assertTrue(desktop.visible_windows())
        self.assertEqual(self.activate(desktop), ANSWER)
        desktop.wait_for_no_window()
        self.quit(desktop)

    def test_launched_from_a_menu_it_takes_a_note(self):
        desktop = self.desktop(OnboardingCompleted="true")
        # A bare start would show nothing: it is the call by the bus that shows the window.
        desktop.spawn("menu", ["/usr/bin/python3", "-c", MENU],
                      PATH=f"{self.prefix}/bin:/usr/bin", XDG_DATA_DIRS=f"{self.prefix}/share")
        desktop.wait_for_window()
        desktop.type_text("By the menu /new_note ")
        desktop.press("ctrl+Return")
        [note] = wait_until(desktop.notes, "a note")
        self.assertTrue(note.name.startswith("By the menu - "))
        self.quit(desktop)

    def test_first_of_all_starts_shows_the_welcome_alone(self):
        desktop = self.desktop()
        self.assertEqual(self.activate(desktop), ANSWER)
        wait_until(lambda: self.windows(desktop, "Welcome to Jotwell"), "the welcome")
        time.sleep(SETTLED)
        self.assertEqual(desktop.visible_windows(), [])
        self.assertEqual(self.act(desktop, "toggle"), ANSWER)
        desktop.wait_for_window()
        self.quit(desktop)

    def test_quitting_what_does_not_run_leaves_nothing(self):
        for settings in {"OnboardingCompleted": "true"}, {}:
            self.quit(self.desktop(**settings))

    def test_actions_start_the_program_too(self):
        desktop = self.desktop(OnboardingCompleted="true")
        self.assertEqual(self.act(desktop, "settings"), ANSWER)
        wait_until(lambda: self.windows(desktop, "Settings"), "the settings")
        time.sleep(SETTLED)
        self.assertEqual(desktop.visible_windows(), [])
        self.quit(desktop)

    def test_commands_of_the_entry_do_what_its_actions_do(self):
        desktop = self.desktop(OnboardingCompleted="true")
        toggle, settings, leave = self.commands_of_entry()
        desktop.ask(*toggle)
        desktop.wait_for_window()
        desktop.ask(*toggle)
        desktop.wait_for_no_window()
        desktop.ask(*settings)
        wait_until(lambda: self.windows(desktop, "Settings"), "the settings")
        desktop.ask(*leave)
        wait_until(lambda: not desktop.strays(), "the end of the program")

    def test_started_by_hand_it_is_the_one_that_the_desktop_activates(self):
        desktop = self.desktop(OnboardingCompleted="true")
        first = desktop.start_program()
        wait_until(lambda: desktop.owns_name(NAME), "the program")
        self.assertEqual(self.activate(desktop), ANSWER)
        desktop.wait_for_window()
        self.assertEqual(desktop.strays(), [])
        self.assertEqual(desktop.start_program().exit_status(), 0)
        desktop.wait_for_no_window()
        self.assertEqual(self.act(desktop, "quit"), ANSWER)
        self.assertEqual(first.exit_status(), 0)

    def test_start_at_login_starts_what_is_installed(self):
        with onboarding.welcome() as it:
            desktop = it.desktop
            entry = Path(desktop.environment["XDG_CONFIG_HOME"], f"autostart/{NAME}.desktop")
            it.go_on(2)
            it.choose("vault", desktop.vault)
            it.to_the_way_on()
            it.go_on(3)
            it.go_on(4)
            it.to_the_way_on("Launch at Login")
            it.press("space")
            wait_until(entry.exists, "the entry")
            it.stop()
            desktop.write_settings(OnboardingCompleted="true")
            login = desktop.spawn("login", ["/usr/bin/python3", "-c", LOGIN, str(entry)])
            wait_until(lambda: desktop.owns_name(NAME), "the program")
            self.assertEqual(self.activate(desktop), ANSWER)
            desktop.wait_for_window()
            running = [os.readlink(f"/proc/{stray}/exe") for stray in desktop.strays()]
            self.assertIn(os.environ["JOTWELL_PROGRAM"], running)
            login.stop()

    def test_windows_have_the_icon_and_class_that_desktops_look_for(self):
        desktop = self.desktop(OnboardingCompleted="true")
        self.act(desktop, "settings")
        [window] = wait_until(lambda: self.windows(desktop, "Settings"), "the settings")
        told = desktop.ask("xprop", "-id", window, "-notype", "WM_CLASS", "_NET_WM_ICON")
        self.assertIn('WM_CLASS = "jotwell", "jotwell"', told)
        self.assertIn("StartupWMClass=jotwell\n", self.entry.read_text())
        self.assertIn("Icon (128 x 128)", told)


if __name__ == "__main__":
    unittest.main()
