"""A thought becomes a file: the everyday way through the real window."""

import unittest

from desktop import Desktop
from notes import CLOCK, CLOCK_IN_NAMES, CLOCK_IN_TEXT, daily_note, default_note
from processes import wait_until

AMERICAN = {"LC_ALL": "en_US.UTF-8"}


class Capture(unittest.TestCase):
    def check_only_note(self, desktop, name, text):
        wait_until(desktop.notes, "a note")
        self.assertEqual([path.name for path in desktop.notes()], [f"{name} - {CLOCK_IN_NAMES}.md"])
        self.assertEqual(desktop.notes()[0].read_bytes().decode(), text)

    def test_note_is_what_the_template_says(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            desktop.start_program(clock=CLOCK, **AMERICAN)
            desktop.call_up()
            desktop.type_text("Call Ada about the garden /new_note")
            desktop.press(*["BackSpace"] * len("Default"))
            desktop.type_text("Da")
            desktop.press("Return")
            desktop.press("ctrl+Return")
            thought = "Call Ada about the garden"
            self.check_only_note(desktop, thought, daily_note(thought, thought, CLOCK_IN_TEXT))

    def test_text_survives_hiding(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            program = desktop.start_program(clock=CLOCK, **AMERICAN)
            desktop.call_up()
            desktop.type_text("half a thought")
            desktop.press("Escape")
            desktop.wait_for_no_window()
            self.assertEqual(desktop.notes(), [])

            self.assertEqual(desktop.start_program().exit_status(), 0)
            desktop.wait_for_window()
            desktop.type_text(" and its end /new_note ")
            desktop.press("ctrl+Return")
            thought = "half a thought and its end"
            self.check_only_note(desktop, thought, default_note(thought, thought, CLOCK_IN_TEXT))

            self.assertEqual(desktop.start_program().exit_status(), 0)
            desktop.wait_for_no_window()
            self.assertTrue(program.is_running())

    def test_start_after_onboarding_is_hidden(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            program = desktop.start_program()
            wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the name on the bus")
            self.assertEqual(desktop.visible_windows(), [])
            self.assertEqual(desktop.start_program().exit_status(), 0)
            desktop.wait_for_window()
            self.assertTrue(program.is_running())


if __name__ == "__main__":
    unittest.main()
