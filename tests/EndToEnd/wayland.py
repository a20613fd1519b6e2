"""Jotwell under a Wayland compositor without any portal: the window comes, captures and goes."""

import json
import os
import shutil
import signal
import subprocess
import unittest
from pathlib import Path

from bare_starts import ENVIRONMENT, complaints_of
from desktop import Desktop, program
from processes import wait_until

USER = 65534  # the compositor doesn't run as root
BY_USER = (["setpriv", f"--reuid={USER}", f"--regid={USER}", "--clear-groups"]
           if os.geteuid() == 0 else [])


class WaylandDesktop(Desktop):
    """A session bus and a compositor, no X server; all of it is the user's."""

    def _start(self):
        self.give_to_user()
        self._start_bus()
        self.environment["XDG_SESSION_TYPE"] = "wayland"
        configuration = self.folder / "sway.conf"
        configuration.write_text('default_border none\nfor_window [app_id=".*"] floating enable\n')
        self.spawn("sway", ["sway", "--config", str(configuration)],
                   WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman")
        runtime = Path(self.environment["XDG_RUNTIME_DIR"])
        [ipc] = wait_until(lambda: list(runtime.glob("sway-ipc*")), "the compositor")
        [lock] = wait_until(lambda: list(runtime.glob("wayland-*.lock")), "its socket")
        self.environment |= {"SWAYSOCK": str(ipc), "WAYLAND_DISPLAY": lock.stem}
        # One keyboard stays: without any, no window would be told that it has the focus.
        self.spawn("keyboard", ["wtype", "-s", str(24 * 60 * 60 * 1000)])

    def give_to_user(self):
        for path in [self.folder, *self.folder.rglob("*")] if BY_USER else []:
            os.chown(path, USER, USER)

    def spawn(self, name, command, **options):
        return super().spawn(name, [*BY_USER, *command], **options)

    def ask(self, *command):
        return super().ask(*BY_USER, *command)

    def visible_windows(self):
        tree = self.ask("swaymsg", "--type", "get_tree", "--raw")
        return ["Jotwell"] * tree.count('"name": "Jotwell"')

    def wait_for_window(self):
        wait_until(self.visible_windows, "the capture window")

    def window_with_keyboard(self):
        nodes = [json.loads(self.ask("swaymsg", "--type", "get_tree", "--raw"))]
        for node in nodes:  # which grows meanwhile
            nodes += node["nodes"] + node["floating_nodes"]
        return next((node["name"] for node in nodes if node["focused"]), None)

    def wait_for_keyboard(self, name):
        wait_until(lambda: self.window_with_keyboard() == name, f"the keyboard for {name}")

    def act(self, action):
        self.ask("gdbus", "call", "--session", "--dest", "com.jotwell.Jotwell", "--object-path",
                 "/com/jotwell/Jotwell", "--method", "org.freedesktop.Application.ActivateAction",
                 action, "[]", "{}")

    def send_keys(self, *keys):
        # A keyboard that has just been plugged in loses its first key.
        self.ask("wtype", "-s", "200", "-k", "Shift_L", "-s", "200", *keys)


class Wayland(unittest.TestCase):
    def setUp(self):
        for tool in "sway", "swaymsg", "wtype":
            if not shutil.which(tool):
                self.skipTest(f"no {tool}")
        if subprocess.run([*BY_USER, "test", "-x", program()]).returncode:
            self.skipTest("the program is out of the user's reach")

    def call_up(self, desktop):
        wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the name on the bus")
        self.toggle(desktop)
        desktop.wait_for_window()

    def toggle(self, desktop):
        self.assertEqual(desktop.start_program().exit_status(), 0)

    def test_capture_and_toggle(self):
        with WaylandDesktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            desktop.give_to_user()
            jotwell = desktop.start_program(**ENVIRONMENT)
            self.call_up(desktop)
            desktop.send_keys("It works here too /new_note ", "-s", "200",
                              "-M", "ctrl", "-k", "Return", "-m", "ctrl")
            [note] = wait_until(desktop.notes, "a note")
            self.assertTrue(note.name.startswith("It works here too - "), note.name)
            self.toggle(desktop)
            desktop.wait_for_no_window()
            self.toggle(desktop)
            desktop.wait_for_window()
            desktop.send_keys("-k", "Escape")
            desktop.wait_for_no_window()
            jotwell.send(signal.SIGTERM)
            self.assertEqual(jotwell.exit_status(), 0)
            self.assertEqual(complaints_of(jotwell), [])

    def test_covered_windows_come_to_the_front(self):
        with WaylandDesktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            desktop.give_to_user()
            jotwell = desktop.start_program(**ENVIRONMENT)
            self.call_up(desktop)
            desktop.wait_for_keyboard("Jotwell")
            desktop.act("settings")
            desktop.wait_for_keyboard("Settings")
            self.toggle(desktop)
            desktop.wait_for_keyboard("Jotwell")
            desktop.act("settings")
            desktop.wait_for_keyboard("Settings")
            desktop.act("toggle")
            desktop.wait_for_keyboard("Jotwell")
            self.toggle(desktop)
            desktop.wait_for_no_window()
            desktop.wait_for_keyboard("Settings")
            self.assertEqual(complaints_of(jotwell), [])

    def test_compositor_that_goes(self):
        with WaylandDesktop() as desktop:
            desktop.write_settings(OnboardingCompleted="true")
            desktop.give_to_user()
            jotwell = desktop.start_program(**ENVIRONMENT)
            self.call_up(desktop)
            desktop.ask("swaymsg", "exit")
            self.assertGreaterEqual(jotwell.exit_status(), 0, "ended by a signal")


if __name__ == "__main__":
    unittest.main()
