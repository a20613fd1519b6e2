"""A request to end is no accident: what is being saved is saved, and the exit status is 0."""

import os
import random
import signal
import time
import unittest
from pathlib import Path

import accessibility
from desktop import Desktop
from editor import Editor
from notes import default_note
from processes import wait_until

ROUNDS = 10


class Termination(unittest.TestCase):
    def test_each_request_ends_it_cleanly(self):
        with Desktop() as desktop:
            desktop.write_settings(OnboardingCompleted="true")
            for request in signal.SIGTERM, signal.SIGINT, signal.SIGHUP:
                program = desktop.start_program()
                desktop.call_up()
                program.send(request)
                self.assertEqual(program.exit_status(), 0, request.name)

    def test_a_save_comes_to_its_end(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            program = desktop.start_program(LD_PRELOAD=os.environ["JOTWELL_SLOW_DISK"])
            desktop.call_up()
            desktop.type_text("worth the wait /new_note ")
            desktop.press("ctrl+Return")
            in_vault = f"{desktop.vault}/"
            wait_until(lambda: any(name.startswith(in_vault) for name in program.open_files()),
                       "the start of the save")
            self.assertEqual(desktop.notes(), [])
            program.send(signal.SIGTERM)
            self.assertEqual(program.exit_status(), 0)
            [note] = desktop.notes()
            self.assertTrue(note.read_text().startswith("# worth the wait\n\nworth the wait\n"))

    def test_a_setting_is_stored_though_the_disk_takes_its_time(self):
        slow_disk = {"LD_PRELOAD": os.environ["JOTWELL_SLOW_DISK"]}
        with Desktop(bus_services=accessibility.BUS_SERVICES) as desktop:
            editor = Editor(desktop, program=slow_disk, RecentFilesCount=7)
            editor.type("x /new_note")
            editor.wait_for("x /new_note  $Default")
            editor.press(*["BackSpace"] * len("Default"))
            editor.wait_for_selected("Default")
            editor.press("Down", "Down", "Return")
            editor.wait_for("x /new_note  $Daily Note")
            editor.program.send(signal.SIGTERM)
            self.assertEqual(editor.program.exit_status(), 0)
            path = Path(desktop.environment["XDG_CONFIG_HOME"], "com.jotwell/Jotwell.ini")
            stored = dict(line.split("=", 1) for line in path.read_text().splitlines()[1:])
            self.assertIn("LastUsedTemplateId", stored)
            self.assertEqual(stored["RecentFilesCount"], "7")

    def test_a_note_is_whole_or_absent(self):
        chance = random.Random(1)
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            for number in range(ROUNDS):
                program = desktop.start_program()
                desktop.call_up()
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

    def test_output_that_nobody_reads_is_no_reason_to_end(self):
        with Desktop() as desktop:
            desktop.write_settings(OnboardingCompleted="true")
            program = desktop.start_program(by=["bash", "-c", 'exec "$0" > >(head -n 1)'])
            wait_until(lambda: desktop.owns_name("com.jotwell.Jotwell"), "the program")
            self.assertEqual(desktop.start_program().exit_status(), 0)
            desktop.wait_for_window()
            desktop.press("ctrl+alt+b")
            desktop.wait_for_no_window()
            program.send(signal.SIGTERM)
            self.assertEqual(program.exit_status(), 0)


if __name__ == "__main__":
    unittest.main()
