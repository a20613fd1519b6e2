"""What a machine does to a program that runs for weeks: disks turn read-only, clocks jump, lids
close. The program goes on, and says in its own words what it can't do."""

import contextlib
import signal
import time
import unittest
from pathlib import Path

import accessibility
import mounts
from bare_starts import ENVIRONMENT, complaints_of
from desktop import Desktop, JumpingClock
from processes import wait_until
from searching import LONGEST_HANG, SearchTest, SearchWindow, write_notes

OWN_WORDS = [r"critical com\.jotwell\.\w+: .*"]
SUSPENDED = 6  # seconds: more than lies between two scans
HOME = "HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"


@contextlib.contextmanager
def read_only_home(desktop):
    with contextlib.ExitStack() as disks:
        for folder in (desktop.environment[name] for name in HOME):
            disks.enter_context(mounts.small_disk(folder))
        desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
        for folder in (desktop.environment[name] for name in HOME):
            mounts.set_writable(folder, False)
        yield


def capture(desktop, thought):
    """Writes a note through the window, and gives its file."""
    before = desktop.notes()
    desktop.type_text(f"{thought} /new_note ")
    desktop.press("ctrl+Return")
    wait_until(lambda: len(desktop.notes()) > len(before), "a note")
    [note] = set(desktop.notes()) - set(before)
    return note


class HomeFolder(unittest.TestCase):
    def check_capture(self, desktop):
        program = desktop.start_program(**ENVIRONMENT)
        desktop.call_up()
        self.assertTrue(capture(desktop, "Written elsewhere").name.startswith("Written elsewhere"))
        program.send(signal.SIGTERM)
        self.assertEqual(program.exit_status(), 0)
        return program

    def test_home_is_read_only(self):
        with Desktop() as desktop, read_only_home(desktop):
            program = self.check_capture(desktop)
            self.assertEqual(complaints_of(program, OWN_WORDS), [])
            self.assertIn("Failed to open database", program.errors())

    def test_autostart_folder_is_a_file(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            autostart = Path(desktop.environment["XDG_CONFIG_HOME"]) / "autostart"
            autostart.write_text("mine")
            self.assertEqual(complaints_of(self.check_capture(desktop)), [])
            self.assertEqual(autostart.read_text(), "mine")


class ClockAndSuspend(SearchTest):
    def check_work(self, window, thought):
        """It captures, finds what it has captured, and comes and goes."""
        note = capture(window.desktop, thought)
        self.assertTrue(window.finds(thought))
        self.assertFalse(window.finds("words that nobody wrote"))
        self.assertLess(window.toggle(), LONGEST_HANG)
        return note

    def check_jump(self, by):
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            clock = JumpingClock(desktop)
            window = SearchWindow(desktop, **clock.environment)
            self.assertIn(clock.date(), self.check_work(window, "Before it").name)
            clock.jump(by)
            self.assertIn(clock.date(), self.check_work(window, "Behind it").name)
            window.program.send(signal.SIGTERM)
            self.assertEqual(window.program.exit_status(), 0)

    def test_clock_jumps_ahead_by_a_day(self):
        self.check_jump(1)

    def test_clock_jumps_back_by_a_day(self):
        self.check_jump(-1)

    def test_suspend(self):
        with self.searching(fill=lambda vault: write_notes(vault, 20)) as window:
            window.wait_for_index()
            window.program.send(signal.SIGSTOP)
            (window.desktop.vault / "meanwhile.md").write_text("a stranger came by")
            time.sleep(SUSPENDED)
            window.program.send(signal.SIGCONT)
            self.assertTrue(window.finds("stranger came"))
            self.check_work(window, "Behind it")


if __name__ == "__main__":
    mounts.main()
