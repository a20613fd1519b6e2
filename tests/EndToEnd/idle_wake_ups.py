"""A program that waits for its user sleeps: it wakes for the timers it owes and for nothing else."""

import unittest

from desktop import Desktop
from processes import wait_until

IDLE_TIME = 7  # seconds: more than any timer's that repeats
SCAN_PERIOD = 5
MOST_FOR_A_SCAN = 30  # wake-ups of all threads together


class IdleWakeUps(unittest.TestCase):
    def wake_ups(self, program):
        """How often it wakes in the idle time, once it has come to rest."""
        wait_until(lambda: program.wake_ups_in(1) == 0, "a program at rest")
        return program.wake_ups_in(IDLE_TIME)

    def start_hidden(self, desktop, **settings):
        desktop.write_settings(OnboardingCompleted="true", **settings)
        program = desktop.start_program()
        wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the name on the bus")
        return program

    def test_since_the_start(self):
        with Desktop() as desktop:
            self.assertEqual(self.wake_ups(self.start_hidden(desktop)), 0)

    def test_without_a_bus(self):
        with Desktop(bus=False) as desktop:
            desktop.write_settings(OnboardingCompleted="true")
            program = desktop.start_program()
            desktop.call_up()
            desktop.press("Escape")
            desktop.wait_for_no_window()
            self.assertEqual(self.wake_ups(program), 0)

    def test_once_the_window_is_hidden_again(self):
        with Desktop() as desktop:
            program = self.start_hidden(desktop)
            desktop.start_program().exit_status()
            desktop.wait_for_window()
            desktop.type_text("a thought /new_note  #")  # a list is open
            desktop.start_program().exit_status()
            desktop.wait_for_no_window()
            self.assertEqual(self.wake_ups(program), 0)

    def test_with_a_vault(self):
        with Desktop() as desktop:
            (desktop.vault / "note.md").write_text("a note")
            program = self.start_hidden(desktop, ObsidianFolderPath=desktop.vault)
            scans = IDLE_TIME // SCAN_PERIOD + 1
            self.assertLessEqual(self.wake_ups(program), scans * MOST_FOR_A_SCAN)


if __name__ == "__main__":
    unittest.main()
