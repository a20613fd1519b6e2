"""What the program says of itself where there is nothing: no display, no bus, no home to write to."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from desktop import Desktop, program
from processes import PATIENCE



def start(*words, stdout=subprocess.PIPE, **environment):
    return subprocess.run([program(), *words], stdout=stdout, stderr=subprocess.PIPE, text=True,
                          env=environment, timeout=PATIENCE)


class CommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="jotwell-")
        self.addCleanup(folder.cleanup)
        self.home = Path(folder.name)

    def start(self, *words, **options):
        done = start(*words, HOME=str(self.home), QT_QPA_PLATFORM="xcb", **options)
        self.assertEqual(list(self.home.iterdir()), [])
        return done

    def test_version(self):
        for word in "--version", "-v":
            done = self.start(word)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertRegex(done.stdout, r"\Ajotwell \d+\.\d+\.\d+\n\Z")

    def test_help(self):
        for word in "--help", "-h":
            done = self.start(word)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertTrue(done.stdout.startswith("Usage: jotwell "))
            self.assertTrue(all(len(line) <= 80 for line in done.stdout.splitlines()))

    def test_manual_has_the_same_options(self):
        page = Path(__file__).resolve().parents[2] / "resources/desktop/jotwell.1.in"
        options = page.read_text().partition(".SH OPTIONS")[2].partition(".SH")[0].replace("\\", "")
        told = re.findall(r"--?\w+", self.start("--help").stdout)
        self.assertIn("--version", told)
        for option in told:
            self.assertIn(option, options)

    def test_words_that_mean_nothing(self):
        for word in "--toggle", "note.md":
            done = self.start(word)
            self.assertEqual((done.returncode, done.stdout), (2, ""))
            self.assertIn(word.strip("-"), done.stderr)

    def test_answer_that_nobody_can_take(self):
        with open("/dev/full", "w") as full:
            self.assertEqual(self.start("--version", stdout=full).returncode, 1)

    def test_running_program_hears_nothing_of_it(self):
        with Desktop() as desktop:
            desktop.write_settings(ObsidianFolderPath=desktop.vault, OnboardingCompleted="true")
            desktop.start_program()
            desktop.call_up()
            for word in "--version", "--help", "--toggle":
                start(word, **desktop.environment)
            desktop.type_text("Still there")
            desktop.wait_for_window()
            self.assertEqual(start(**desktop.environment).returncode, 0)
            desktop.wait_for_no_window()


if __name__ == "__main__":
    unittest.main()
