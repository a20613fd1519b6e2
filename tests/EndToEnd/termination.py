"""A request to end is no accident: what is being saved is saved, and the exit status is 0."""

import random
import signal
import time
import unittest

from desktop import Desktop
from notes import default_note

ROUNDS = 15


class Termination(unittest.TestCase):
    def test_each_request_ends_it_cleanly(self):
        with Desktop() as desktop:
            desktop.write_settings(OnboardingCompleted="false")
            for request in signal.SIGTERM, signal.SIGINT, signal.SIGHUP:
                program = desktop.start_program()
                desktop.wait_for_window()
                program.send(request)
                self.assertEqual(program.exit_status(), 0, request.name)

    def test_a_note_is_whole_or_absent(self):
        chance = random.Random(1)
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="false")
            for number in range(ROUNDS):
                program = desktop.start_program()
                desktop.wait_for_window()
                desktop.type_text(f"thought {number} /new_note ")
                desktop.press("ctrl+Return")
                time.sleep(chance.uniform(0, 0.03))
                program.send(signal.SIGTERM)
                self.assertEqual(program.exit_status(), 0)
            self.assertTrue(desktop.notes())
            for note in desktop.notes():
                thought = note.stem.split(" - ")[0]
                text = note.read_text()
                date = text.rpartition("Created: ")[2]
                self.assertEqual(text, default_note(thought, thought, date))
            print(f"{len(desktop.notes())} of {ROUNDS} notes got written")


if __name__ == "__main__":
    unittest.main()
