"""Jotwell does its work on a desktop that lacks something, and doesn't complain about it."""

import re
import signal
import unittest

from desktop import Desktop
from processes import wait_until

# Marks what is a warning or worse in what the program and Qt write to standard error.
ENVIRONMENT = {"QT_MESSAGE_PATTERN": "%{type} %{category}: %{message}"}
HARMLESS = ["debug .*", "info .*"]


class BareStarts(unittest.TestCase):
    def check_capture(self, *, path="/usr/bin", **lacking):
        with Desktop(**lacking) as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="false")
            program = desktop.start_program(**ENVIRONMENT, PATH=path)
            desktop.wait_for_window()
            desktop.type_text("It works here too /new_note ")
            desktop.press("ctrl+Return")
            [note] = wait_until(desktop.notes, "a note")
            self.assertTrue(note.name.startswith("It works here too - "), note.name)
            program.send(signal.SIGTERM)
            self.assertEqual(program.exit_status(), 0)
            self.assertEqual(desktop.strays(), [])
            complaints = [line for line in program.errors().splitlines()
                          if not any(re.fullmatch(known, line) for known in HARMLESS)]
            self.assertEqual(complaints, [])

    def test_no_tray(self):
        self.check_capture()  # there is none on this desktop

    def test_no_session_bus(self):
        self.check_capture(bus=False)

    def test_no_window_manager(self):
        self.check_capture(window_manager=False)

    def test_no_compositor(self):
        self.check_capture(compositor=False)

    def test_nothing_at_all(self):
        self.check_capture(bus=False, window_manager=False, compositor=False)

    def test_no_tools_on_the_path(self):
        self.check_capture(path="/nowhere")


if __name__ == "__main__":
    unittest.main()
