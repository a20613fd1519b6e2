"""An index that is being built holds up no end, and no end harms the next start."""

import random
import signal
import time
import unittest

import hostile_vault
from desktop import Desktop
from processes import wait_until
from searching import is_sound, stored_notes, write_notes

COUNT = 2000
ROUNDS = 6
LONGEST_END = 3  # seconds

STARTED = "[AppDelegate] refreshMenuBar() called"
BUILT = f"Index built successfully: {COUNT} files"
COMPLAINTS = "critical", "warning", "fatal"


class Endings(unittest.TestCase):
    def start(self, desktop):
        program = desktop.start_program(QT_MESSAGE_PATTERN="%{type} %{category}: %{message}")
        self.starts += 1
        wait_until(lambda: program.output().count(STARTED) == self.starts, "the start of the build")
        return program

    def setUp(self):
        self.starts = 0

    def builds(self, desktop):
        return sum(BUILT in line for line in desktop.log())

    def check_ends(self, program):
        start = time.monotonic()
        program.send(signal.SIGTERM)
        self.assertEqual(program.exit_status(), 0)
        self.assertLess(time.monotonic() - start, LONGEST_END)

    def check_next_start(self, desktop):
        before = self.builds(desktop)
        program = self.start(desktop)
        wait_until(lambda: self.builds(desktop) > before, "the next build")
        self.assertEqual(stored_notes(desktop), {f"note {number}.md" for number in range(COUNT)})
        self.check_ends(program)
        self.assertTrue(is_sound(desktop))
        self.assertFalse([line for line in desktop.log() if line.startswith(COMPLAINTS)])

    def check_rounds(self, end):
        chance = random.Random(1)
        with Desktop() as desktop:
            write_notes(desktop.vault, COUNT)
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            for _ in range(ROUNDS):
                program = self.start(desktop)
                time.sleep(chance.uniform(0, 1))
                end(program)
            cut = ROUNDS - self.builds(desktop)
            print(f"{cut} of {ROUNDS} builds were cut short")
            self.assertGreater(cut, 0)
            self.check_next_start(desktop)

    def test_request_to_end(self):
        self.check_rounds(self.check_ends)

    def test_kill(self):
        def kill(program):
            program.send(signal.SIGKILL)
            self.assertEqual(program.exit_status(), -signal.SIGKILL)

        self.check_rounds(kill)

    def test_request_to_end_while_a_huge_note_is_read(self):
        with Desktop() as desktop:
            hostile_vault.write_huge_note(desktop.vault / "huge.md")
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            for pause in 0, 0.3, 1:
                program = self.start(desktop)
                time.sleep(pause)
                self.check_ends(program)
            self.assertLess(sum("Index built" in line for line in desktop.log()), 3)


if __name__ == "__main__":
    unittest.main()
