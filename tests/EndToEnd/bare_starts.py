"""Jotwell does its work on a desktop that lacks something, and doesn't complain about it."""

import re
import signal
import time
import unittest

import portal
from desktop import Desktop
from processes import wait_until

# Marks what is a warning or worse in what the program and Qt write to standard error.
ENVIRONMENT = {"QT_MESSAGE_PATTERN": "%{type} %{category}: %{message}"}
HARMLESS = ["debug .*", "info .*"]
# What Qt says of an X server without these.
OF_QT = ["warning default: There is no XRandR .*",
         "warning default: Falling back to using screens root_visual."]
LONGEST_START = 8  # seconds, sanitizers included; a call that nobody answers would take 25
MISSING = "COMPOSITE", "MIT-SHM", "RANDR", "XINERAMA"


def complaints_of(program, own_words=()):
    """What the program has written to standard error beyond that."""
    return [line for line in program.errors().splitlines()
            if not any(re.fullmatch(known, line) for known in [*HARMLESS, *own_words])]


class BareStarts(unittest.TestCase):
    def check_capture(self, *, prepare=lambda desktop: None, environment=None, own_words=(), **lacking):
        with Desktop(**lacking) as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            prepare(desktop)
            before = time.monotonic()
            program = desktop.start_program(**ENVIRONMENT | (environment or {}))
            desktop.call_up()
            self.assertLess(time.monotonic() - before, LONGEST_START)
            desktop.type_text("It works here too /new_note ")
            desktop.press("ctrl+Return")
            [note] = wait_until(desktop.notes, "a note")
            self.assertTrue(note.name.startswith("It works here too - "), note.name)
            before = time.monotonic()
            program.send(signal.SIGTERM)
            self.assertEqual(program.exit_status(), 0)
            self.assertLess(time.monotonic() - before, LONGEST_START)
            self.assertEqual(desktop.strays(), [])
            self.assertEqual(complaints_of(program, own_words), [])

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
        self.check_capture(environment={"PATH": "/nowhere"})

    def test_poor_x_server(self):
        options = [word for name in MISSING for word in ("-extension", name)]
        self.check_capture(x_options=options, own_words=OF_QT, compositor=False)

    def test_no_portal(self):
        self.check_capture(environment={"XDG_CURRENT_DESKTOP": "GNOME"})

    def test_portal_that_never_answers(self):
        self.check_capture(prepare=portal.start_silent_portal,
                           environment={"XDG_CURRENT_DESKTOP": "GNOME"})

    def test_portal_that_refuses(self):
        self.check_capture(prepare=portal.start_refusing_portal,
                           environment={"XDG_CURRENT_DESKTOP": "GNOME"})


if __name__ == "__main__":
    unittest.main()
